#pragma once

namespace vask::ui {

// The keyboard as widgets know it. Nothing asks for it yet: its two operations mark the place of
// what a widget may want of a keyboard on its own accord.
class IKeyboard {
 public:
  virtual ~IKeyboard() = default;
  virtual void ShowKeyboard() = 0;
  virtual void HideKeyboard() = 0;
};

}  // namespace vask::ui
