#pragma once

namespace vask {

// Controls the cursor on the screen and the input grab.
class IMouseHardware {
 public:
  virtual ~IMouseHardware() = default;
  virtual void ShowCursor() = 0;
  virtual void HideCursor() = 0;
  // 0 none, 1 arrow, 2 cross, 3 text, 4 hand, 5 busy, 6 to 9 the four resize arrows.
  virtual void ChangeCursor(int type) = 0;
  virtual void GrabInput(bool on) = 0;
};

}  // namespace vask
