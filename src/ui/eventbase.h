#pragma once

namespace vask::ui {

class CFocusEvent;
class CKeyboardEvent;
class CMouseEvent;
class IEvent;

// Whoever receives events of the user interface. A handler may delete any receiver, itself
// included.
class IEventBase {
 public:
  IEventBase() = default;
  IEventBase(const IEventBase&) = delete;
  IEventBase& operator=(const IEventBase&) = delete;

  // Gives up the mouse capture and the keyboard.
  virtual ~IEventBase();
  // Routes the event to the one it is for, the receiver or somebody below it.
  virtual void HandleEvent(IEvent& event) = 0;
  virtual void OnMouseEvent(CMouseEvent& event);
  virtual void OnKeyboardEvent(CKeyboardEvent& event);
  virtual void OnFocusEvent(CFocusEvent& event);
};

}  // namespace vask::ui
