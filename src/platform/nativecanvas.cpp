#include "platform/nativecanvas.h"

#include <algorithm>
#include <utility>

namespace vask::platform {

SBox SBox::Inside(int border) const {
  return {x + border, y + border, std::max(0, width - 2 * border),
          std::max(0, height - 2 * border)};
}

int INativeFont::TextWidth(std::string_view text) const {
  int width = 0;
  for (const char c : text) {
    width += CharWidth(c);
  }
  return width;
}

void INativeCanvas::Edge(const SBox& box, ENativeColor topLeft, ENativeColor bottomRight) {
  FillBox({box.x, box.y, box.width, 1}, topLeft);
  FillBox({box.x, box.y, 1, box.height}, topLeft);
  FillBox({box.x, box.y + box.height - 1, box.width, 1}, bottomRight);
  FillBox({box.x + box.width - 1, box.y, 1, box.height}, bottomRight);
}

void INativeCanvas::DottedEdge(const SBox& box) {
  for (int x = 0; x < box.width; x += 2) {
    FillBox({box.x + x, box.y, 1, 1}, ENativeColor::kText);
    FillBox({box.x + x, box.y + box.height - 1, 1, 1}, ENativeColor::kText);
  }
  for (int y = 0; y < box.height; y += 2) {
    FillBox({box.x, box.y + y, 1, 1}, ENativeColor::kText);
    FillBox({box.x + box.width - 1, box.y + y, 1, 1}, ENativeColor::kText);
  }
}

namespace {

// Where the line that begins at `begin` ends, and where the next one begins.
std::pair<std::size_t, std::size_t> EndOfLine(std::string_view text, std::size_t begin, int width,
                                              const INativeFont& font) {
  std::size_t afterBlank = begin;
  int used = 0;
  for (std::size_t i = begin; i < text.size(); ++i) {
    if (text[i] == '\n') {
      return {i, i + 1};
    }
    used += font.CharWidth(text[i]);
    if (used > width && i > begin) {
      // A blank may hang over the edge, where it can't be seen.
      const std::size_t end = text[i] == ' ' ? i + 1 : afterBlank > begin ? afterBlank : i;
      return {end, end};
    }
    if (text[i] == ' ') {
      afterBlank = i + 1;
    }
  }
  return {text.size(), std::string_view::npos};
}

}  // namespace

std::vector<STextLine> WrapText(std::string_view text, int width, const INativeFont& font) {
  std::vector<STextLine> lines;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    const auto [end, next] = EndOfLine(text, begin, width, font);
    lines.push_back({begin, end});
    begin = next;
  }
  return lines;
}

int TextHeight(std::string_view text, int width, const INativeFont& font) {
  return static_cast<int>(WrapText(text, width, font).size()) * font.LineHeight();
}

}  // namespace vask::platform
