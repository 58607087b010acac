#pragma once

#include "platform/nativecontrol.h"

namespace vask::platform {

// A button with its label in the middle (class "button"). Return and the space key click it.
class CButtonControl : public CNativeControl {
 public:
  using CNativeControl::CNativeControl;
  bool TakesFocus() const override { return true; }
  bool IsButton() const override { return true; }
  void Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) override;
  bool OnKey(const SNativeKey& key, const INativeFont& font) override;
};

}  // namespace vask::platform
