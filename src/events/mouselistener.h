#pragma once

namespace vask {

// Receives mouse motion, in window pixels, and buttons (the numbers of input/buttons.h). A button
// comes without a position: it is where the last motion ended.
class IMouseListener {
 public:
  // Removes the listener from the event bridge; defined in eventbridge.cpp.
  virtual ~IMouseListener();
  virtual void OnMouseMove(int x, int y) = 0;
  virtual void OnMouseMoveRelative(int /*dx*/, int /*dy*/) {}
  virtual void OnMouseButtonDown(int button) = 0;
  virtual void OnMouseButtonUp(int button) = 0;
};

}  // namespace vask
