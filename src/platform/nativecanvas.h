#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vask::platform {

// A rectangle of a native window, in pixels.
struct SBox {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool Contains(int px, int py) const {
    return px >= x && py >= y && px < x + width && py < y + height;
  }
  // The box without a border of that many pixels; not below an empty one.
  SBox Inside(int border) const;
};

// Measures texts. A character is a byte, and a text is as wide as its characters together.
class INativeFont {
 public:
  virtual ~INativeFont() = default;
  virtual int CharWidth(char character) const = 0;
  // From the top of one line to the top of the next, at least 1.
  virtual int LineHeight() const = 0;

  int TextWidth(std::string_view text) const;
};

enum class ENativeColor { kFace, kField, kText, kLight, kShadow, kDark, kSelection };

// Controls are drawn on it.
class INativeCanvas : public INativeFont {
 public:
  virtual void FillBox(const SBox& box, ENativeColor color) = 0;
  // One line of text by its top left corner, cut off at the edges of `clip`.
  virtual void Text(int x, int y, std::string_view text, const SBox& clip) = 0;

  // A border of one pixel inside the box: left and top, right and bottom.
  void Edge(const SBox& box, ENativeColor topLeft, ENativeColor bottomRight);
  // A dotted border of one pixel.
  void DottedEdge(const SBox& box);
};

// A line of a text: its characters from `begin` to before `end`. Without the line feed.
struct STextLine {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Breaks the text at its line feeds and, where a line is wider than `width`, after the last blank
// that leaves it narrow enough, or anywhere in a longer word. At least one line; each takes at
// least one character.
std::vector<STextLine> WrapText(std::string_view text, int width, const INativeFont& font);

// The height of the text's lines, broken at that width.
int TextHeight(std::string_view text, int width, const INativeFont& font);

}  // namespace vask::platform
