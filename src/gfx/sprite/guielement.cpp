#include "gfx/sprite/guielement.h"

#include "input/buttons.h"
#include "input/mouse.h"

#include <utility>

namespace zogui {
CGuiElement::CGuiElement(vask::CSprite* sprite) : mySprite(sprite) {
  vask::CMouse::GetSingletonPtr()->AddMouseable(this);
}

int CGuiElement::GetZ() const { return mySprite != nullptr ? mySprite->GetZ() : 0; }

int CGuiElement::GetZ() { return std::as_const(*this).GetZ(); }

vask::CRect<int> CGuiElement::GetRect() const {
  return mySprite != nullptr ? mySprite->GetRect() : vask::CRect<int>{};
}

vask::CRect<int> CGuiElement::GetRect() { return std::as_const(*this).GetRect(); }

void CGuiElement::OnMouseMove(int x, int y) {
  if (myDragging) {
    mySprite->SetPosition(x + myDragOffsetX, y + myDragOffsetY);
  }
}

// A dragged element gets every press; only the one that starts the drag counts.
void CGuiElement::OnMouseButtonDown(int button) {
  if (button != vask::kLeftButton || !myDraggable || myDragging || mySprite == nullptr) {
    return;
  }
  vask::CMouse* mouse = vask::CMouse::GetSingletonPtr();
  myDragging = true;
  myDragOffsetX = mySprite->GetX() - mouse->GetPointerX();
  myDragOffsetY = mySprite->GetY() - mouse->GetPointerY();
  mouse->AddDragged(this);
}

void CGuiElement::OnMouseButtonUp(int button) {
  if (button != vask::kLeftButton || !myDragging) {
    return;
  }
  myDragging = false;
  vask::CMouse::GetSingletonPtr()->RemoveDragged(this);
}

}  // namespace zogui
