#pragma once

#include "utils/rect.h"

namespace vask {

// An object on the screen that takes mouse events from CMouse. Buttons are those of buttons.h,
// positions are window pixels.
class IMouseable {
 public:
  // Removes all its entries from CMouse.
  virtual ~IMouseable();
  virtual void OnMouseMove(int x, int y) = 0;
  virtual void OnMouseMoveRelative(int dx, int dy) = 0;
  // The pointer left the object.
  virtual void OnMouseOut(int x, int y) = 0;
  virtual void OnMouseButtonDown(int button) = 0;
  virtual void OnMouseButtonUp(int button) = 0;
  // Whether a hit on this object hides those after it.
  virtual bool IsBlocking() = 0;
  virtual CRect<int> GetRect() = 0;
  virtual int GetZ() = 0;
};

// Ignores all events, blocks nothing, has an empty rectangle: derived classes override what they
// need.
class CMouseableImpl : public IMouseable {
 public:
  void OnMouseMove(int, int) override {}
  void OnMouseMoveRelative(int, int) override {}
  void OnMouseOut(int, int) override {}
  void OnMouseButtonDown(int) override {}
  void OnMouseButtonUp(int) override {}
  bool IsBlocking() override { return false; }
  CRect<int> GetRect() override { return {}; }
  int GetZ() override { return 0; }
};

}  // namespace vask
