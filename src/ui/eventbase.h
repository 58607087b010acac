#pragma once

namespace vask::ui {

class CFocusEvent;
class CKeyboardEvent;
class CMouseEvent;
class IEvent;

// What receives events of the user interface. A handler may delete any receiver, itself included.
class IEventBase {
 public:
  IEventBase() = default;
  IEventBase(const IEventBase&) = delete;
  IEventBase& operator=(const IEventBase&) = delete;

  // Gives up the mouse capture and the keyboard (ui/receivers.cpp).
  virtual ~IEventBase();
  // Routes the event to its receiver, this one or one below it.
  virtual void HandleEvent(IEvent& event) = 0;
  virtual void OnMouseEvent(CMouseEvent&) {}
  virtual void OnKeyboardEvent(CKeyboardEvent&) {}
  virtual void OnFocusEvent(CFocusEvent&) {}
};

}  // namespace vask::ui
