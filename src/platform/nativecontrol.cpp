#include "platform/nativecontrol.h"

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
  std::size_t behindBlank = begin;
  int used = 0;
  for (std::size_t i = begin; i < text.size(); ++i) {
    if (text[i] == '\n') {
      return {i, i + 1};
    }
    used += font.CharWidth(text[i]);
    if (used > width && i > begin) {
      // A blank may hang over the edge, where it can't be seen.
      const std::size_t end = text[i] == ' ' ? i + 1 : behindBlank > begin ? behindBlank : i;
      return {end, end};
    }
    if (text[i] == ' ') {
      behindBlank = i + 1;
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

CNativeControl::CNativeControl(std::string text, const SBox& box, int id, unsigned style)
    : myText(std::move(text)), myBox(box), myId(id), myStyle(style) {}

void CNativeControl::OnPress(int /*x*/, int /*y*/, const INativeFont& /*font*/) {}

void CNativeControl::OnDrag(int /*x*/, int /*y*/, const INativeFont& /*font*/) {}

void CNativeControl::OnWheel(int /*lines*/, const INativeFont& /*font*/) {}

bool CNativeControl::OnKey(const SNativeKey& /*key*/, const INativeFont& /*font*/) { return false; }

void CStaticControl::SetText(std::string text) {
  CNativeControl::SetText(std::move(text));
  myFirstLine = 0;
}

void CStaticControl::Draw(INativeCanvas& canvas, bool /*hasFocus*/, bool /*isPressed*/) {
  if (HasStyle(kClientEdge)) {
    canvas.Edge(GetBox(), ENativeColor::kShadow, ENativeColor::kLight);
  }
  const std::size_t rows = CountRows(canvas);
  if (rows > 1) {
    DrawLines(canvas, rows);
    return;
  }
  const SBox box = TextBox();
  canvas.Text(box.x + 1, box.y + (box.height - canvas.LineHeight()) / 2, myText, box);
}

std::size_t CStaticControl::CountRows(const INativeFont& font) const {
  return static_cast<std::size_t>(TextBox().height / font.LineHeight());
}

void CStaticControl::DrawLines(INativeCanvas& canvas, std::size_t rows) const {
  const SBox box = TextBox();
  const std::vector<STextLine> lines = WrapText(myText, box.width, canvas);
  const std::size_t end = std::min(lines.size(), myFirstLine + rows);
  int y = box.y;
  for (std::size_t i = myFirstLine; i < end; ++i) {
    const bool hidesMore = i + 1 == end && end < lines.size();
    const std::string_view text =
        std::string_view(myText).substr(lines[i].begin, lines[i].end - lines[i].begin);
    canvas.Text(box.x, y, hidesMore ? "..." : text, box);
    y += canvas.LineHeight();
  }
}

void CStaticControl::OnWheel(int lines, const INativeFont& font) {
  const std::size_t count = WrapText(myText, TextBox().width, font).size();
  const std::size_t rows = CountRows(font);
  const int last = rows > 1 && count > rows ? static_cast<int>(count - rows) : 0;
  myFirstLine =
      static_cast<std::size_t>(std::clamp(static_cast<int>(myFirstLine) + lines, 0, last));
}

void CButtonControl::Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) {
  const SBox& box = GetBox();
  canvas.Edge(box, ENativeColor::kDark, ENativeColor::kDark);
  canvas.FillBox(box.Inside(1), ENativeColor::kFace);
  if (isPressed) {
    canvas.Edge(box.Inside(1), ENativeColor::kShadow, ENativeColor::kFace);
  } else {
    canvas.Edge(box.Inside(1), ENativeColor::kLight, ENativeColor::kShadow);
  }
  const int shift = isPressed ? 1 : 0;
  canvas.Text(box.x + (box.width - canvas.TextWidth(myText)) / 2 + shift,
              box.y + (box.height - canvas.LineHeight()) / 2 + shift, myText, box.Inside(2));
  if (hasFocus) {
    canvas.DottedEdge(box.Inside(3));
  }
}

bool CButtonControl::OnKey(const SNativeKey& key, const INativeFont& /*font*/) {
  return key.key == ENativeKey::kReturn || key.text == " ";
}

}  // namespace vask::platform
