#include "ui/console/logview.h"

#include "gfx/text/font.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace vask::ui {
namespace {

// The longest line is cut there.
constexpr int kMaxLineHeight = 200;
// Every line needs an offset of its own.
constexpr int kMinLineHeight = 1;
constexpr int kNeverOneRow = std::numeric_limits<int>::max();
constexpr int kTabBlanks = 4;  // that a font draws for a tab

// The view's width from which on the text is one row, if it has no line end but at its own end.
int RowWidth(const std::string& text, const CFont& font) {
  if (text.empty() || text.find('\n') < text.size() - 1) {
    return kNeverOneRow;
  }
  const auto tabs = static_cast<int>(std::count(text.begin(), text.end(), '\t'));
  return font.GetTextWidth(text) + tabs * kTabBlanks * font.GetSpaceWidth();
}

bool EndsWord(char character) { return character == ' ' || character == '\t' || character == '\n'; }

// Adds up the widths of the characters of each word; a word that is wider than the view has to be
// broken before one of them.
class CWordWidth {
 public:
  CWordWidth(const CFont& font, int limit) : myWidths(font.GetCharWidths()), myLimit(limit) {}

  // Whether a break belongs before the character.
  bool IsBreakBefore(char character) {
    const int own = myWidths[static_cast<unsigned char>(character)];
    myWidth = EndsWord(character) ? 0 : myWidth + own;
    const bool isBreak = myWidth > myLimit && myWidth > own;
    myWidth = isBreak ? own : myWidth;
    return isBreak;
  }

 private:
  const std::array<int, 256>& myWidths;
  int myLimit;
  int myWidth = 0;
};

bool HasTooWideWord(const std::string& text, const CFont& font, int width) {
  CWordWidth word(font, width);
  return std::ranges::any_of(text, [&](char character) { return word.IsBreakBefore(character); });
}

// Breaks words that are wider than `width` into lines: the font would draw nothing of them and of
// the rest of the text.
std::string WithWordsBroken(const std::string& text, const CFont& font, int width) {
  CWordWidth word(font, width);
  std::string broken;
  broken.reserve(text.size());
  for (const char character : text) {
    if (word.IsBreakBefore(character)) {
      broken += '\n';
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
  const CRect<int> rect{myArea.x, top, myArea.w, kMaxLineHeight};
  const SPenPosition end =
      HasTooWideWord(line.text, *font, myArea.w)
          ? font->Write(surface, WithWordsBroken(line.text, *font, myArea.w), rect)
          : font->Write(surface, line.text, rect);
  return std::max(end.y - top, kMinLineHeight);
}

int CLogView::Measure(const SLogLines::SLine& line, const SPlace& place) const {
  const CFont* font = FontOf(line);
  if (font != nullptr && place.rowWidth <= myArea.w) {
    return std::max(font->GetLineHeight(), kMinLineHeight);
  }
  return Write(nullptr, line, 0);
}

int CLogView::HeightOf(std::size_t line) const {
  const int end = line + 1 < myPlaces.size() ? myPlaces[line + 1].offset : myTotalHeight;
  return end - myPlaces[line].offset;
}

void CLogView::Append(const SLogLines::SLine& line) {
  const CFont* font = FontOf(line);
  myPlaces.push_back({myTotalHeight, font != nullptr ? RowWidth(line.text, *font) : 0});
  myTotalHeight += Measure(line, myPlaces.back());
}

void CLogView::RemeasureAll() {
  myPlaces.clear();
  myPlaces.reserve(myLog.lines.size());
  myTotalHeight = 0;
  for (const SLogLines::SLine& line : myLog.lines) {
    Append(line);
  }
  myRepaintNeeded = true;
}

// A line that is one row at both widths keeps its height, and its text is not looked at.
void CLogView::SetWidth(int width) {
  if (width == myArea.w) {
    return;
  }
  const int narrower = std::min(width, myArea.w);
  myArea.w = width;
  int offset = 0;
  for (std::size_t line = 0; line < myPlaces.size(); ++line) {
    SPlace& place = myPlaces[line];
    const int height =
        place.rowWidth <= narrower ? HeightOf(line) : Measure(myLog.lines[line], place);
    place.offset = std::exchange(offset, offset + height);
  }
  myTotalHeight = offset;
  myRepaintNeeded = true;
}

void CLogView::TakeNewLines() {
  while (!myIsPainting && myPlaces.size() < myLog.lines.size()) {
    if (myTotalHeight >= myArea.y && myTotalHeight <= myArea.y + myArea.h) {
      myRepaintNeeded = true;
    }
    Append(myLog.lines[myPlaces.size()]);
  }
}

bool CLogView::Draw(IPixel* surface, const CRect<int>& area, bool force) {
  SetWidth(area.w);
  if (!myRepaintNeeded && area == myArea && surface == mySurface && !force) {
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
  for (std::size_t line = FirstLineAt(y); line < myPlaces.size() && y < bottom; ++line) {
    const int height = Write(surface, myLog.lines[line], myPlaces[line].offset - myArea.y);
    isOfOtherHeight |= height != HeightOf(line);
    y = myPlaces[line].offset + height;
  }
  return isOfOtherHeight;
}

std::size_t CLogView::FirstLineAt(int y) const {
  const auto below = std::ranges::upper_bound(myPlaces, y, {}, &SPlace::offset);
  return below == myPlaces.begin() ? 0 : static_cast<std::size_t>(below - myPlaces.begin()) - 1;
}

}  // namespace vask::ui
