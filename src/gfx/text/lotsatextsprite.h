#pragma once

#include "gfx/sprite/sprite.h"
#include "kernel/fakethread.h"

namespace vask {

// Paints the parts of a long text that a view asks for.
class ILotsATextDrawer {
 public:
  virtual ~ILotsATextDrawer() = default;
  // Of the whole text, in pixels.
  virtual int GetTextHeight() = 0;
  // Paints the part of the text that lies in `area`, in pixels of the text, onto the surface, which
  // may be null. Without `force`, what would look as before is not painted again. Answers whether
  // it painted.
  virtual bool Draw(IPixel* surface, const CRect<int>& area, bool force) = 0;
};

// A view of a text that is too long to be drawn whole. It shows the end of the text, and follows it
// as the text grows, until it is scrolled up: then it stays where it is. A text that is shorter
// than the view sits at its bottom.
//
//   auto* view = new CLotsATextSprite(400, 180);
//   view->SetDrawer(&drawer);  // asked every 100 ms
//   const CSpritePtr sprite(view);
//   sprite->SetParent(CScreenLayer::GetSingletonPtr());
class CLotsATextSprite : public CSprite, public CFakeThread {
 public:
  CLotsATextSprite(int width, int height);

  // A new surface of that size, painted at once.
  void SetSize(int width, int height) override;
  // Looks for something new to show.
  void Update() override;
  // Neither is done: the sprite dies with the pointer that holds it, and a paused thread would hold
  // back all those behind it.
  bool Kill() override { return false; }
  void Pause() override {}

  // Not owned; null for none.
  void SetDrawer(ILotsATextDrawer* drawer);
  // Moves the view down the text, or up for a negative number of pixels, as far as there is text.
  void ScrollBy(int pixels);

 private:
  // Where the view begins in a text of that height.
  int TopIn(int textHeight) const;
  void MoveTo(int top, int textHeight);
  void Hold();
  // Answers whether it painted.
  bool PaintText(bool force);
  CRect<int> ViewArea() const;

  ILotsATextDrawer* myDrawer = nullptr;
  float myScrollFraction = 1.0F;  // of what the text is higher than the view; 1: its end is shown
  int myTextHeight = 0;           // of the text that the fraction was made for
};

}  // namespace vask
