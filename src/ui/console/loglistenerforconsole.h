#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walklist.h"
#include "ui/console/logview.h"
#include "utils/log/log.h"

#include <string>

namespace vask {

class CFont;

namespace ui {

// Keeps every line of the log. The process-wide one listens from the start of the program to its
// end, so that a console that is opened late shows the whole log.
//
// Each console measures and paints the lines with its own view. The listener's own operations act
// on the view that was added last or, when there is none, on one of its own.
class CLogListenerForConsole : public ILogListener,
                               public ILotsATextDrawer,
                               public CStaticSingleton<CLogListenerForConsole> {
 public:
  void OnLog(const std::string& line, int level) override;
  // Does nothing: lines are kept at once.
  virtual void Flush() {}
  // The font of lines whose level has none; not owned. With null they are kept, but not painted.
  virtual void SetFont(CFont* font);

  int GetTextHeight() override;
  bool Draw(IPixel* surface, const CRect<int>& area, bool force) override;

  // The font of the lines of one level; not owned, null for the default font.
  void SetLevelFont(int level, CFont* font);

  const SLogLines& GetLines() const { return myLog; }
  // Adds a view of these lines, which is told of new ones; not owned.
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
