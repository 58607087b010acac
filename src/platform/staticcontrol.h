#pragma once

#include "platform/nativecontrol.h"

#include <cstddef>
#include <string>

namespace vask::platform {

// A read-only text (class "static"). It wraps when the box is two lines high or more. The wheel
// scrolls what does not fit, and dots in the last line show that there is more.
class CStaticControl : public CNativeControl {
 public:
  using CNativeControl::CNativeControl;
  void SetText(std::string text) override;
  void Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) override;
  void OnWheel(int lines, const INativeFont& font) override;

 private:
  SBox TextBox() const { return GetBox().Inside(HasStyle(kClientEdge) ? 2 : 0); }
  std::size_t CountRows(const INativeFont& font) const;
  void DrawLines(INativeCanvas& canvas, std::size_t rows) const;

  std::size_t myFirstLine = 0;  // the first one shown
};

}  // namespace vask::platform
