#pragma once

#include "gfx/sprite/sprite.h"
#include "kernel/fakethread.h"

namespace vask {

// Paints the visible part of a long text for a view.
class ILotsATextDrawer {
 public:
  virtual ~ILotsATextDrawer() = default;
  // The height of the whole text, in pixels.
  virtual int GetTextHeight() = 0;
  // Paints the part of the text inside `area` (pixels of the text) onto the surface, which may be
  // null. Without `force`, nothing is painted when the result would be the same as last time.
  // Returns whether it painted.
  virtual bool Draw(IPixel* surface, const CRect<int>& area, bool force) = 0;
};

// A view of a text that is too long to be drawn whole. It shows the end of the text and follows it
// as the text grows. Once it is scrolled up, it stays where it is. A text that is shorter than the
// view is shown at its bottom.
//
//     auto* view = new CLotsATextSprite(30, 20);
//     view->SetDrawer(&drawer);  // called every 100 ms
//     const CSpritePtr sprite(view);
//     sprite->SetParent(CScreenLayer::GetSingletonPtr());
class CLotsATextSprite : public CSprite, public CFakeThread {
 public:
  CLotsATextSprite(int width, int height);

  // Makes a new surface of that size and paints it at once.
  void SetSize(int width, int height) override;
  // Shows what is new since the last call.
  void Update() override;
  // Both do nothing: the sprite dies with the pointer that holds it, and a paused thread would stop
  // all threads after it.
  bool Kill() override { return false; }
  void Pause() override {}

  // Not owned; null for none.
  void SetDrawer(ILotsATextDrawer* drawer);
  // Scrolls down, or up for a negative number of pixels, as far as there is text.
  void ScrollBy(int pixels);

 private:
  // The y in a text of that height where the view begins.
  int TopIn(int textHeight) const;
  void MoveTo(int top, int textHeight);
  void Hold();
  // Returns whether it painted.
  bool PaintText(bool force);
  CRect<int> ViewArea() const;

  ILotsATextDrawer* myDrawer = nullptr;
  float myScrollFraction = 1.0F;  // 0: the beginning is shown, 1: the end
  int myTextHeight = 0;           // the height for which the fraction was computed
};

}  // namespace vask
