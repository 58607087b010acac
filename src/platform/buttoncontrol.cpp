#include "platform/buttoncontrol.h"

namespace vask::platform {

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
