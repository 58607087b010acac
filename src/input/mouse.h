#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walklist.h"
#include "events/mouselistener.h"
#include "input/mouseable.h"

namespace vask {

// Turns raw mouse events into events for objects on the screen: hit-tests the mouseables against
// the pointer, tracks which blocking object the pointer is over and which took the last press, and
// passes every event to the dragged objects without a test. Owns none of them; handlers may add,
// remove and delete any object, themselves included.
//
//     CMouse& mouse = *CMouse::GetSingletonPtr();
//     mouse.AddMouseable(button);  // gets events inside its rectangle
//     mouse.AddDragged(knob);      // gets all events
//     mouse.RemoveDragged(knob);
class CMouse : public CStaticSingleton<CMouse>, public IMouseListener {
 public:
  CMouse();
  ~CMouse() override;

  // Mouseables are tested in the order in which they were added.
  void AddMouseable(IMouseable* mouseable);
  // The same object may be added twice.
  void AddDragged(IMouseable* mouseable);
  // Removes the first entry of the object.
  void RemoveDragged(IMouseable* mouseable);
  // Removes the first entry of the object from both lists; it is no target any more.
  void RemoveMouseable(IMouseable* mouseable);
  // Removes every entry of an object that is being destroyed.
  void ForgetMouseable(IMouseable* mouseable);

  // The position of the last motion, in window pixels; 0 before the first.
  int GetPointerX() const { return myPointerX; }
  int GetPointerY() const { return myPointerY; }

  void OnMouseMove(int x, int y) override;
  void OnMouseMoveRelative(int dx, int dy) override;
  void OnMouseButtonDown(int button) override;
  void OnMouseButtonUp(int button) override;

 private:
  using ButtonHandler = void (IMouseable::*)(int button);

  // Calls the handler; returns whether the object is still registered.
  bool Dispatch(IMouseable* target, int button, ButtonHandler handler);
  void DispatchToDragged(int button, ButtonHandler handler);

  CWalkList<IMouseable> myMouseables;
  CWalkList<IMouseable> myDragged;
  IMouseable* myPressedTarget = nullptr;
  IMouseable* myOverTarget = nullptr;
  IMouseable* myDispatchTarget = nullptr;
  int myPointerX = 0;
  int myPointerY = 0;
};

}  // namespace vask
