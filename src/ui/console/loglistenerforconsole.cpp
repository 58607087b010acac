#include "ui/console/loglistenerforconsole.h"

namespace vask::ui {
namespace {

class CRegistration {
 public:
  CRegistration() {
    CLog::GetSingletonPtr()->AddListener(CLogListenerForConsole::GetSingletonPtr());
  }
  ~CRegistration() {
    if (CLog* log = CLog::PeekSingletonPtr()) {
      log->RemoveListener(CLogListenerForConsole::PeekSingletonPtr());
    }
    CLogListenerForConsole::DeleteSingleton();
  }
  CRegistration(const CRegistration&) = delete;
  CRegistration& operator=(const CRegistration&) = delete;
};

const CRegistration theRegistration;

}  // namespace

void CLogListenerForConsole::OnLog(const std::string& line, int level) {
  if (level < myLowestLevel) {
    return;
  }
  myLog.lines.push_back({level, line});
  TellViews([](CLogView& view) { view.TakeNewLines(); });
}

void CLogListenerForConsole::SetFont(CFont* font) { View().SetFont(font); }

int CLogListenerForConsole::GetTextHeight() { return View().GetTextHeight(); }

bool CLogListenerForConsole::Draw(IPixel* surface, const CRect<int>& area, bool force) {
  return View().Draw(surface, area, force);
}

void CLogListenerForConsole::SetLevelFont(int level, CFont* font) {
  myLog.levelFonts[level] = font;
  TellViews([](CLogView& view) { view.RemeasureAll(); });
}

void CLogListenerForConsole::AddView(CLogView* view) { myViews.AppendOnce(view); }

void CLogListenerForConsole::RemoveView(CLogView* view) { myViews.Remove(view); }

CLogView& CLogListenerForConsole::View() {
  return myViews.IsEmpty() ? myOwnView : *myViews.Items().back();
}

template <typename Call>
void CLogListenerForConsole::TellViews(Call call) {
  call(myOwnView);
  for (CLogView* view : myViews.Items()) {
    call(*view);
  }
}

}  // namespace vask::ui
