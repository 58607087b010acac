#pragma once

#include "ui/mouse.h"

#include <cstdint>

namespace vask {

// Gives widgets the engine's mouse. The UI task tells it what the event bridge reports; requests
// for cursors go to the event bridge.
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
