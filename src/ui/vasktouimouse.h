#pragma once

#include "ui/mouse.h"

#include <cstdint>

namespace vask {

// The engine's mouse for widgets. The UI task passes on what the event bridge reports; the cursor
// operations call the event bridge.
class CVaskToUiMouse : public ui::IMouse {
 public:
  ui::SPoint GetPosition() const override { return myPosition; }
  ui::SPoint GetMovement() const override { return myPreviousPosition - myPosition; }
  std::int32_t GetButtons() const override { return myButtons; }
  void HideCursor() override;
  void ShowCursor() override;
  void ChangeCursor(std::int32_t type) override;

  void MoveTo(ui::SPoint position);
  void Press(std::int32_t button) { myButtons |= button; }
  void Release(std::int32_t button) { myButtons &= ~button; }

 private:
  std::int32_t myButtons = 0;  // bits
  ui::SPoint myPosition;       // in pixels of the window, as the next
  ui::SPoint myPreviousPosition;
};

}  // namespace vask
