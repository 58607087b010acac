#include "platform/staticcontrol.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace vask::platform {

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

}  // namespace vask::platform
