#pragma once

namespace vask {

// Hears of mouse motion, in window pixels, and of buttons (the numbers of input/buttons.h). A
// button comes without a position: the last motion tells it.
class IMouseListener {
 public:
  // Leaves the event bridge (defined with it).
  virtual ~IMouseListener();
  virtual void OnMouseMove(int x, int y) = 0;
  virtual void OnMouseMoveRelative(int /*dx*/, int /*dy*/) {}
  virtual void OnMouseButtonDown(int button) = 0;
  virtual void OnMouseButtonUp(int button) = 0;
};

}  // namespace vask
