#pragma once

#include "platform/nativecontrol.h"

#include <cstddef>
#include <string>

namespace vask::platform {

// A text that is only shown (class "static"). It wraps when the box has room for two lines; what
// has no room then is scrolled by the wheel, and dots in the last line tell that more comes.
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
