#include "gfx/text/lotsatextsprite.h"

#include <algorithm>

namespace vask {
namespace {

constexpr int kInterval = 100;  // milliseconds

}  // namespace

CLotsATextSprite::CLotsATextSprite(int width, int height) {
  ReplaceImage(Gfx::NewBuffer(width, height));
  SetInterval(kInterval);
  CFakeThread::Start();
}

void CLotsATextSprite::SetSize(int width, int height) {
  if (width == GetRect().w && height == GetRect().h) {
    return;
  }
  if (myDrawer != nullptr) {
    Hold();
  }
  ReplaceImage(Gfx::NewBuffer(width, height));
  if (myDrawer != nullptr && !IsEmpty()) {
    PaintText(true);
    ImageChanged();
  }
}

void CLotsATextSprite::Update() {
  if (myDrawer == nullptr || IsEmpty()) {
    return;
  }
  Hold();
  if (PaintText(false)) {
    ImageChanged();
  }
}

// Painting may break the lines anew, which changes the text's height and the place of what is
// shown; then it is painted once more.
bool CLotsATextSprite::PaintText(bool force) {
  const CRect<int> area = ViewArea();
  bool hasPainted = myDrawer->Draw(LoadedImage(), area, force);
  myTextHeight = myDrawer->GetTextHeight();
  if (ViewArea() != area) {
    hasPainted |= myDrawer->Draw(LoadedImage(), ViewArea(), true);
  }
  return hasPainted;
}

void CLotsATextSprite::SetDrawer(ILotsATextDrawer* drawer) {
  myDrawer = drawer;
  myTextHeight = drawer != nullptr ? drawer->GetTextHeight() : 0;
}

void CLotsATextSprite::ScrollBy(int pixels) {
  if (myDrawer == nullptr) {
    return;
  }
  Hold();
  MoveTo(TopIn(myTextHeight) + pixels, myTextHeight);
  Update();
}

// In double, so that the fraction distinguishes all pixels of a text of some hundred thousand
// lines.
int CLotsATextSprite::TopIn(int textHeight) const {
  const int room = textHeight - GetRect().h;
  return room > 0 ? static_cast<int>(double{myScrollFraction} * room) : room;
}

// The fraction is that of the pixel's middle, so that rounding finds the same pixel again.
void CLotsATextSprite::MoveTo(int top, int textHeight) {
  const int room = textHeight - GetRect().h;
  const double middle = std::max(top, 0) + 0.5;
  myScrollFraction = top >= room ? 1.0F : static_cast<float>(middle / room);
}

// Keeps the view on the same text while more is added below it.
void CLotsATextSprite::Hold() {
  const int height = myDrawer->GetTextHeight();
  if (height <= GetRect().h) {
    myScrollFraction = 1.0F;
  } else if (myScrollFraction < 1.0F && height > myTextHeight) {
    MoveTo(TopIn(myTextHeight), height);
  }
  myTextHeight = height;
}

CRect<int> CLotsATextSprite::ViewArea() const {
  return {0, TopIn(myDrawer->GetTextHeight()), GetRect().w, GetRect().h};
}

}  // namespace vask
