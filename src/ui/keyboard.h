#pragma once

namespace vask::ui {

// The keyboard for widgets. Nothing uses it yet: its two operations are for a keyboard that is
// shown on the screen.
class IKeyboard {
 public:
  virtual ~IKeyboard() = default;
  virtual void ShowKeyboard() = 0;
  virtual void HideKeyboard() = 0;
};

}  // namespace vask::ui
