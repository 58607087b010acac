#pragma once

#include "events/eventbridge.h"
#include "ui/geometry.h"

#include <cstdint>

namespace vask::ui {

// The mouse for widgets; every mouse event carries one, or null.
class IMouse {
 public:
  virtual ~IMouse() = default;
  virtual SPoint GetPosition() const = 0;
  // The vector from the pointer back to where it was before its last move.
  virtual SPoint GetMovement() const = 0;
  // The mask of held buttons.
  virtual std::int32_t GetButtons() const = 0;
  virtual void HideCursor() = 0;
  virtual void ShowCursor() = 0;
  virtual void ChangeCursor(std::int32_t type) = 0;
};

// The cursor types that widgets set; their places in the table of cursor names.
enum ECursor : std::int32_t {
  kCursorNone = 0,
  kCursorArrow = 1,
  kCursorText = 3,
  kCursorResizeHorizontal = 6,
  kCursorResizeVertical = 7,
  kCursorResizeDiagonal1 = 8,
  kCursorResizeDiagonal2 = 9,
};

// A null mouse is ignored.
inline void ChangeCursor(IMouse* mouse, std::int32_t type) {
  if (mouse != nullptr) {
    mouse->ChangeCursor(type);
  }
}

// Sets the arrow again, for a widget that dies while it has changed the cursor: it has no event
// with a mouse then.
inline void RestoreCursor() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->ChangeCursor(kCursorArrow);
  }
}

}  // namespace vask::ui
