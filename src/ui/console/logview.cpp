#include "ui/console/logview.h"

#include "gfx/text/font.h"

#include <algorithm>

namespace vask::ui {
namespace {

// The longest line is cut there.
constexpr int kMaxLineHeight = 200;
// Every line needs an offset of its own.
constexpr int kMinLineHeight = 1;

bool EndsWord(char character) { return character == ' ' || character == '\t' || character == '\n'; }

// Breaks words that are wider than `width` into lines: the font would draw nothing of them and of
// the rest of the text.
std::string WithWordsBroken(const std::string& text, const CFont& font, int width) {
  std::string broken;
  broken.reserve(text.size());
  int wordWidth = 0;
  for (const char character : text) {
    const int own = font.GetCharWidth(static_cast<unsigned char>(character));
    wordWidth = EndsWord(character) ? 0 : wordWidth + own;
    if (wordWidth > width && wordWidth > own) {
      broken += '\n';
      wordWidth = own;
    }
    broken += character;
  }
  return broken;
}

}  // namespace

CLogView::CLogView(const SLogLines& log) : myLog(log) { RemeasureAll(); }

void CLogView::SetFont(CFont* font) {
  myFont = font;
  RemeasureAll();
}

CFont* CLogView::FontOf(const SLogLines::SLine& line) const {
  const auto found = myLog.levelFonts.find(line.level);
  return found != myLog.levelFonts.end() && found->second != nullptr ? found->second : myFont;
}

int CLogView::Write(IPixel* surface, const SLogLines::SLine& line, int top) const {
  CFont* font = FontOf(line);
  if (font == nullptr) {
    return kMinLineHeight;
  }
  const std::string text = WithWordsBroken(line.text, *font, myArea.w);
  const CRect<int> rect{myArea.x, top, myArea.w, kMaxLineHeight};
  return std::max(font->Write(surface, text, rect).y - top, kMinLineHeight);
}

int CLogView::HeightOf(std::size_t line) const {
  const int end = line + 1 < myOffsets.size() ? myOffsets[line + 1] : myTotalHeight;
  return end - myOffsets[line];
}

void CLogView::Append(const SLogLines::SLine& line) {
  myOffsets.push_back(myTotalHeight);
  myTotalHeight += Write(nullptr, line, 0);
}

void CLogView::RemeasureAll() {
  myOffsets.clear();
  myTotalHeight = 0;
  for (const SLogLines::SLine& line : myLog.lines) {
    Append(line);
  }
  myRepaintNeeded = true;
}

void CLogView::TakeNewLines() {
  while (!myIsPainting && myOffsets.size() < myLog.lines.size()) {
    if (myTotalHeight >= myArea.y && myTotalHeight <= myArea.y + myArea.h) {
      myRepaintNeeded = true;
    }
    Append(myLog.lines[myOffsets.size()]);
  }
}

bool CLogView::Draw(IPixel* surface, const CRect<int>& area, bool force) {
  if (area.w != myArea.w) {
    myArea.w = area.w;
    RemeasureAll();
  } else if (!myRepaintNeeded && area == myArea && surface == mySurface && !force) {
    return false;
  }
  if (surface != nullptr) {
    surface->ClearRect({0, 0, surface->GetWidth(), surface->GetHeight()});
  }
  myArea = area;
  mySurface = surface;
  myIsPainting = true;
  const bool isOfOtherHeight = PaintLines(surface);
  myIsPainting = false;
  myRepaintNeeded = false;
  if (isOfOtherHeight) {
    RemeasureAll();
  }
  TakeNewLines();
  return true;
}

bool CLogView::PaintLines(IPixel* surface) {
  bool isOfOtherHeight = false;
  const int bottom = myArea.y + myArea.h;
  int y = myArea.y;
  for (std::size_t line = FirstLineAt(y); line < myOffsets.size() && y < bottom; ++line) {
    const int height = Write(surface, myLog.lines[line], myOffsets[line] - myArea.y);
    isOfOtherHeight |= height != HeightOf(line);
    y = myOffsets[line] + height;
  }
  return isOfOtherHeight;
}

std::size_t CLogView::FirstLineAt(int y) const {
  const auto below = std::upper_bound(myOffsets.begin(), myOffsets.end(), y);
  return below == myOffsets.begin() ? 0 : static_cast<std::size_t>(below - myOffsets.begin()) - 1;
}

}  // namespace vask::ui
