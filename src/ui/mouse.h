#pragma once

#include "events/eventbridge.h"
#include "ui/geometry.h"

#include <cstdint>

namespace vask::ui {

// The mouse as widgets know it; every mouse event carries one, or null.
class IMouse {
 public:
  virtual ~IMouse() = default;
  virtual SPoint GetPosition() const = 0;
  // The way back to where the pointer was before its last move.
  virtual SPoint GetMovement() const = 0;
  // The bits of the buttons that are held.
  virtual std::int32_t GetButtons() const = 0;
  virtual void HideCursor() = 0;
  virtual void ShowCursor() = 0;
  virtual void ChangeCursor(std::int32_t type) = 0;
};

// The cursor types that widgets ask for, as they stand in the table of cursor names.
enum ECursor : std::int32_t {
  kCursorNone = 0,
  kCursorArrow = 1,
  kCursorText = 3,
  kCursorResizeHorizontal = 6,
  kCursorResizeVertical = 7,
  kCursorResizeDiagonal1 = 8,
  kCursorResizeDiagonal2 = 9,
};

// Nothing for a null mouse.
inline void ChangeCursor(IMouse* mouse, std::int32_t type) {
  if (mouse != nullptr) {
    mouse->ChangeCursor(type);
  }
}

// The arrow comes back, for a widget that goes while it has changed the cursor: no event brings it
// a mouse then.
inline void RestoreCursor() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->ChangeCursor(kCursorArrow);
  }
}

}  // namespace vask::ui
