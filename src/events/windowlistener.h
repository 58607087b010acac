#pragma once

namespace vask {

// Receives changes of the window's size and of the input focus.
class IWindowListener {
 public:
  // Removes the listener from the event bridge; defined in eventbridge.cpp.
  virtual ~IWindowListener();
  virtual void OnResize(int width, int height) = 0;
  // True when the window gained the focus, false when it lost it.
  virtual void OnFocus(bool gained) = 0;
};

}  // namespace vask
