#pragma once

#include "gfx/text/lotsatextsprite.h"

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace vask {

class CFont;

namespace ui {

// What is kept of a log, for all views of it. Lines are only ever added.
struct SLogLines {
  struct SLine {
    int level = 0;
    std::string text;  // with its line end
  };

  std::deque<SLine> lines;
  std::map<int, CFont*> levelFonts;  // of the levels with a font of their own; not owned
};

// Paints a log for one view, whose width breaks the lines and so makes the measure of the text. It
// never logs.
class CLogView : public ILotsATextDrawer {
 public:
  // The log must outlive the view.
  explicit CLogView(const SLogLines& log);

  // Of the lines whose level has none; not owned. Null: they are not painted, and a pixel high.
  void SetFont(CFont* font);
  // To be called when a level has got another font.
  void RemeasureAll();
  // To be called when lines have come, at any time: those that come while others are being painted
  // wait until that is done.
  void TakeNewLines();

  int GetTextHeight() override { return myTotalHeight; }
  bool Draw(IPixel* surface, const CRect<int>& area, bool force) override;

 private:
  CFont* FontOf(const SLogLines::SLine& line) const;
  // Writes the line with its top at a height of the surface, which may be null; answers how high it
  // has become.
  int Write(IPixel* surface, const SLogLines::SLine& line, int top) const;
  int HeightOf(std::size_t line) const;
  void Append(const SLogLines::SLine& line);
  // Whether a line has turned out to be of another height.
  bool PaintLines(IPixel* surface);
  std::size_t FirstLineAt(int y) const;

  const SLogLines& myLog;
  CFont* myFont = nullptr;
  std::vector<int> myOffsets;  // of the lines from the top of the text, in pixels
  int myTotalHeight = 0;
  CRect<int> myArea;  // that was painted last, in pixels of the text
  bool myRepaintNeeded = false;
  const IPixel* mySurface = nullptr;  // that was painted last; never looked into
  bool myIsPainting = false;
};

}  // namespace ui
}  // namespace vask
