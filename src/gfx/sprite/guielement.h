#pragma once

#include "gfx/sprite/sprite.h"
#include "input/mouseable.h"

namespace zogui {

// Lets the user drag another sprite about with the left mouse button. It has no picture of its own:
// its rectangle and depth are those of the sprite that it wraps.
class CGuiElement : public vask::CSprite, public vask::CMouseableImpl {
 public:
  // The sprite is not owned and must outlive the element; null for none. Registers with CMouse.
  explicit CGuiElement(vask::CSprite* sprite);

  int GetZ() const override;
  int GetZ() override;
  vask::CRect<int> GetRect() const override;
  vask::CRect<int> GetRect() override;
  void OnMouseMove(int x, int y) override;
  void OnMouseButtonDown(int button) override;
  void OnMouseButtonUp(int button) override;

  void SetDraggable(bool draggable) { myDraggable = draggable; }

 private:
  vask::CSprite* mySprite;
  bool myDragging = false;
  int myDragOffsetX = 0;  // from the pointer to the sprite's corner
  int myDragOffsetY = 0;
  bool myDraggable = true;
};

}  // namespace zogui
