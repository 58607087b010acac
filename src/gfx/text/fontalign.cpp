#include "gfx/text/fontalign.h"

#include <algorithm>
#include <array>

namespace vask {

namespace {

constexpr char kLineEnd = '\n';
constexpr char kBlank = ' ';
constexpr char kTabBlanks[] = "    ";

std::string WithoutTabs(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  for (const char character : text) {
    character == '\t' ? result += kTabBlanks : result += character;
  }
  return result;
}

// How far the pen goes down when no further line fits: whole lines down to the rectangle's bottom.
int RestOfHeight(int used, int height, int lineHeight) {
  return lineHeight <= 0 ? 0 : (height - used + lineHeight - 1) / lineHeight * lineHeight;
}

}  // namespace

std::unique_ptr<IFontAlign> CreateFontAlign(int type) {
  switch (type) {
    case IFontAlign::kLeft:
      return std::make_unique<CFontAlignLeft>();
    case IFontAlign::kCenter:
      return std::make_unique<CFontAlignCenter>();
    case IFontAlign::kRight:
      return std::make_unique<CFontAlignRight>();
    case IFontAlign::kJustify:
      return std::make_unique<CFontAlignJustify>();
    default:
      return nullptr;
  }
}

SPenPosition CFontAlign::Print(CFont& font, IPixel* target, const std::string& text,
                               const CRect<int>& rect) {
  if (text.find('\t') != std::string::npos) {
    return Print(font, target, WithoutTabs(text), rect);
  }
  const int lineHeight = font.GetLineHeight();
  const int length = static_cast<int>(text.size());
  SPenPosition pen{rect.x, rect.y};
  int start = 0;
  for (int used = 0; used < rect.h && start < length; used += lineHeight) {
    const int count = FitLine(font, text, rect, start);
    if (count == 0) {  // the same word would fail on every further line
      pen.y += RestOfHeight(used, rect.h, lineHeight);
      break;
    }
    pen.x = LineX(rect, myLineWidth) + myLineWidth;
    if (target != nullptr && !target->IsEmpty()) {
      const bool hasLineEnd = text[static_cast<std::size_t>(start + count - 1)] == kLineEnd;
      const std::string line = text.substr(static_cast<std::size_t>(start),
                                           static_cast<std::size_t>(count - (hasLineEnd ? 1 : 0)));
      pen.x = DrawLine(font, target, line, rect, pen.y);
    }
    start += count;
    pen.y += lineHeight;
  }
  return pen;
}

int CFontAlign::FitLine(const CFont& font, const std::string& text, const CRect<int>& rect,
                        int start) {
  const int length = static_cast<int>(text.size());
  const std::array<int, 256>& widths = font.GetCharWidths();
  myLineWidth = 0;
  myEndsParagraph = false;
  for (int position = start;;) {
    const int wordStart = position;
    int wordWidth = 0;
    char character = kLineEnd;
    for (; position < length; ++position) {
      character = text[static_cast<std::size_t>(position)];
      if (character == kBlank || character == kLineEnd) {
        break;
      }
      wordWidth += widths[static_cast<unsigned char>(character)];
    }
    const bool isParagraphEnd = position == length || character == kLineEnd;
    // After a blank that reaches over the edge nothing is left that would need another line.
    const bool isUsedUp = isParagraphEnd && position == wordStart;
    if (!isUsedUp && myLineWidth + wordWidth > rect.w) {
      return wordStart - start;
    }
    myLineWidth += wordWidth;
    if (isParagraphEnd) {
      myEndsParagraph = true;
      return std::min(position + 1, length) - start;
    }
    myLineWidth += font.GetSpaceWidth();
    ++position;
  }
}

int CFontAlign::DrawLine(CFont& font, IPixel* target, const std::string& line,
                         const CRect<int>& rect, int y) {
  return font.WriteLine(target, line, LineX(rect, myLineWidth), y).x;
}

int CFontAlignLeft::LineX(const CRect<int>& rect, int) const { return rect.x; }

int CFontAlignCenter::LineX(const CRect<int>& rect, int width) const {
  return rect.x + (rect.w - width - 1) / 2;
}

int CFontAlignRight::LineX(const CRect<int>& rect, int width) const {
  return rect.x + rect.w - width;
}

int CFontAlignJustify::DrawLine(CFont& font, IPixel* target, const std::string& line,
                                const CRect<int>& rect, int y) {
  if (myEndsParagraph) {
    return CFontAlignLeft::DrawLine(font, target, line, rect, y);
  }
  const bool hasTrailingBlank = !line.empty() && line.back() == kBlank;
  const auto end = line.end() - (hasTrailingBlank ? 1 : 0);
  const int width = myLineWidth - (hasTrailingBlank ? font.GetSpaceWidth() : 0);
  const auto blanks = std::count(line.begin(), end, kBlank);
  const float share =
      blanks == 0 ? 0.0F : static_cast<float>(rect.w - width) / static_cast<float>(blanks);
  float x = static_cast<float>(rect.x);
  for (auto word = line.begin();;) {
    const auto wordEnd = std::find(word, end, kBlank);
    const int wordX = static_cast<int>(x);
    x += static_cast<float>(font.WriteLine(target, std::string(word, wordEnd), wordX, y).x - wordX);
    if (wordEnd == end) {
      return static_cast<int>(x);
    }
    x += static_cast<float>(font.GetSpaceWidth()) + share;
    word = wordEnd + 1;
  }
}

}  // namespace vask
