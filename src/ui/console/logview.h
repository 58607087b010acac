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

// The kept lines of a log, shared by all views of it. Lines are only added.
struct SLogLines {
  struct SLine {
    int level = 0;
    std::string text;  // with its line end
  };

  std::deque<SLine> lines;
  std::map<int, CFont*> levelFonts;  // of the levels with a font of their own; not owned
};

// Paints a log for one view: lines are wrapped at its width, which decides the height of the text.
// Never logs.
class CLogView : public ILotsATextDrawer {
 public:
  // The log must outlive the view.
  explicit CLogView(const SLogLines& log);

  // The font of lines whose level has none; not owned. With null they are not painted, and one
  // pixel high.
  void SetFont(CFont* font);
  // Breaks the lines at this width, in pixels; so does Draw at that of its area.
  void SetWidth(int width);
  // Call it when a level has another font.
  void RemeasureAll();
  // Call it when lines were added. Lines that are added during painting are taken after it.
  void TakeNewLines();

  int GetTextHeight() override { return myTotalHeight; }
  bool Draw(IPixel* surface, const CRect<int>& area, bool force) override;

 private:
  struct SPlace {
    int offset;    // from the top of the text, in pixels
    int rowWidth;  // from this view's width on the line is one row
  };

  CFont* FontOf(const SLogLines::SLine& line) const;
  // Writes the line at `top` of the surface, which may be null; returns the line's height.
  int Write(IPixel* surface, const SLogLines::SLine& line, int top) const;
  // The height when nothing is painted; the place's row width is known.
  int Measure(const SLogLines::SLine& line, const SPlace& place) const;
  int HeightOf(std::size_t line) const;
  void Append(const SLogLines::SLine& line);
  // Returns whether a line turned out to have another height.
  bool PaintLines(IPixel* surface);
  std::size_t FirstLineAt(int y) const;

  const SLogLines& myLog;
  CFont* myFont = nullptr;
  std::vector<SPlace> myPlaces;  // of the lines
  int myTotalHeight = 0;
  CRect<int> myArea;  // that was painted last, in pixels of the text
  bool myRepaintNeeded = false;
  const IPixel* mySurface = nullptr;  // that was painted last; never looked into
  bool myIsPainting = false;
};

}  // namespace ui
}  // namespace vask
