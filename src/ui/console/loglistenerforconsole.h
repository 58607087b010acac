#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walklist.h"
#include "ui/console/logview.h"
#include "utils/log/log.h"

#include <string>

namespace vask {

class CFont;

namespace ui {

// Keeps every line of the log. The process-wide one hears the log from the start of the program to
// its end, so that a console that is opened late shows it whole.
//
// Each console measures and paints the lines by a view of its own. What is asked of the listener
// itself is asked of the view that was added last, or, when there is none, of one of its own.
class CLogListenerForConsole : public ILogListener,
                               public ILotsATextDrawer,
                               public CStaticSingleton<CLogListenerForConsole> {
 public:
  void OnLog(const std::string& line, int level) override;
  // Lines are kept at once: nothing to do.
  virtual void Flush() {}
  // The font of all lines but those of a level with a font of its own; not owned. Null: they are
  // kept, but not painted.
  virtual void SetFont(CFont* font);

  int GetTextHeight() override;
  bool Draw(IPixel* surface, const CRect<int>& area, bool force) override;

  // The font of the lines of one level; not owned, null for the default font.
  void SetLevelFont(int level, CFont* font);

  const SLogLines& GetLines() const { return myLog; }
  // A view of these lines, which hears of new ones; not owned.
  void AddView(CLogView* view);
  void RemoveView(CLogView* view);

 private:
  CLogView& View();
  template <typename Call>
  void TellViews(Call call);

  int myLowestLevel = kLogDebug;
  SLogLines myLog;
  CLogView myOwnView{myLog};
  CWalkList<CLogView> myViews;
};

}  // namespace ui
}  // namespace vask
