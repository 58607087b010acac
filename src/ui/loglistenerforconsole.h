#pragma once

#include <map>
#include <string>
#include <vector>

#include "designpatterns/singleton.h"
#include "gfx/lotsatextsprite.h"
#include "utils/log/log.h"

namespace vask {

class CFont;

namespace ui {

// Keeps every line of the log, and paints them for the views of the console. The process-wide one
// hears the log from the start of the program to its end, so that a console that is opened late
// shows it whole. It never logs.
class CLogListenerForConsole : public ILogListener,
                               public ILotsATextDrawer,
                               public CStaticSingleton<CLogListenerForConsole> {
 public:
  // A line that arrives while others are being painted is only noted, and comes behind them after.
  void OnLog(const std::string& line, int level) override;
  // Lines are kept at once: nothing to do.
  virtual void Flush() {}
  // The font of all lines but those of a level with a font of its own; not owned. Null: they are
  // kept, but not painted.
  virtual void SetFont(CFont* font);

  int GetTextHeight() override { return myTotalHeight; }
  bool Draw(IPixel* surface, const CRect<int>& area, bool force) override;

  // The font of the lines of one level; not owned, null for the default font.
  void SetLevelFont(int level, CFont* font);

 private:
  struct SLine {
    int height = 1;  // pixels
    int level = 0;
    std::string text;  // with its line end
  };

  CFont* FontOf(const SLine& line) const;
  int Measure(const SLine& line) const;
  void RemeasureAll();
  // Whether a line has turned out to be of another height.
  bool PaintLines(IPixel* surface);
  std::map<int, SLine>::iterator FirstLineIn(const CRect<int>& area);

  int myLowestLevel = kLogDebug;
  bool myRepaintNeeded = false;
  CRect<int> myArea;  // that was painted last, in pixels of the text
  CFont* myFont = nullptr;
  std::map<int, CFont*> myLevelFonts;
  std::map<int, SLine> myLines;  // by the offset from the top of the text, in pixels
  int myTotalHeight = 0;
  const IPixel* mySurface = nullptr;  // that was painted last; never looked into
  bool myIsPainting = false;
  std::vector<SLine> myLateLines;  // that have arrived while others were painted
};

}  // namespace ui
}  // namespace vask
