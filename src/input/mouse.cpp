#include "input/mouse.h"

#include "events/eventbridge.h"

#include <utility>

namespace vask {

namespace {

// Calls `visit` for each object until it returns false. Objects removed meanwhile are left out, and
// those added wait for the next event: one that removes and adds itself again must not be called
// for ever.
template <typename Visit>
void WalkWhile(CWalkList<IMouseable>& list, Visit visit) {
  bool goesOn = true;
  list.ForEachPresent([&](IMouseable* mouseable) { goesOn = goesOn && visit(mouseable); });
}

}  // namespace

CMouse::CMouse() { CEventBridge::GetSingletonPtr()->AddMouseListener(this); }

CMouse::~CMouse() = default;

void CMouse::AddMouseable(IMouseable* mouseable) { myMouseables.Append(mouseable); }

void CMouse::AddDragged(IMouseable* mouseable) { myDragged.Append(mouseable); }

void CMouse::RemoveDragged(IMouseable* mouseable) { myDragged.Remove(mouseable); }

void CMouse::RemoveMouseable(IMouseable* mouseable) {
  myMouseables.Remove(mouseable);
  myDragged.Remove(mouseable);
  for (IMouseable** target : {&myPressedTarget, &myOverTarget, &myDispatchTarget}) {
    if (*target == mouseable) {
      *target = nullptr;
    }
  }
}

void CMouse::ForgetMouseable(IMouseable* mouseable) {
  RemoveMouseable(mouseable);
  while (myMouseables.Remove(mouseable)) {
  }
  while (myDragged.Remove(mouseable)) {
  }
}

void CMouse::OnMouseMove(int x, int y) {
  myDragged.ForEachPresent([=](IMouseable* dragged) { dragged->OnMouseMove(x, y); });

  IMouseable* hit = nullptr;
  WalkWhile(myMouseables, [&](IMouseable* mouseable) {
    if (!mouseable->GetRect().Contains(x, y)) {
      return true;
    }
    mouseable->OnMouseMove(x, y);
    // An object that was removed in its own handler may be deleted, and blocks nothing any more.
    if (myMouseables.Contains(mouseable) && mouseable->IsBlocking()) {
      hit = mouseable;
    }
    return hit == nullptr;
  });

  // Stored before the call, which may delete either of the two.
  IMouseable* left = std::exchange(myOverTarget, hit);
  if (left != nullptr && left != hit) {
    left->OnMouseOut(x, y);
  }
  myPointerX = x;
  myPointerY = y;
}

void CMouse::OnMouseMoveRelative(int dx, int dy) {
  myDragged.ForEachPresent([=](IMouseable* dragged) { dragged->OnMouseMoveRelative(dx, dy); });
}

bool CMouse::Dispatch(IMouseable* target, int button, ButtonHandler handler) {
  myDispatchTarget = target;
  (target->*handler)(button);
  return std::exchange(myDispatchTarget, nullptr) == target;
}

void CMouse::DispatchToDragged(int button, ButtonHandler handler) {
  WalkWhile(myDragged, [&](IMouseable* dragged) { return Dispatch(dragged, button, handler); });
}

void CMouse::OnMouseButtonDown(int button) {
  DispatchToDragged(button, &IMouseable::OnMouseButtonDown);

  WalkWhile(myMouseables, [&](IMouseable* mouseable) {
    if (!mouseable->GetRect().Contains(myPointerX, myPointerY)) {
      return true;
    }
    const bool blocking = mouseable->IsBlocking();
    if (!Dispatch(mouseable, button, &IMouseable::OnMouseButtonDown)) {
      return false;
    }
    if (blocking) {
      myPressedTarget = mouseable;
    }
    return !blocking;
  });
}

void CMouse::OnMouseButtonUp(int button) {
  DispatchToDragged(button, &IMouseable::OnMouseButtonUp);

  bool pressedTargetHeard = false;
  WalkWhile(myMouseables, [&](IMouseable* mouseable) {
    if (!mouseable->GetRect().Contains(myPointerX, myPointerY)) {
      return true;
    }
    const bool blocking = mouseable->IsBlocking();
    pressedTargetHeard = pressedTargetHeard || mouseable == myPressedTarget;
    mouseable->OnMouseButtonUp(button);
    return !blocking;
  });

  if (!pressedTargetHeard && myPressedTarget != nullptr) {
    std::exchange(myPressedTarget, nullptr)->OnMouseButtonUp(button);
  }
}

}  // namespace vask
