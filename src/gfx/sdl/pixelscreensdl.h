#pragma once

#include "gfx/sdl/pixelsdl.h"
#include "gfx/sdl/video.h"

#include <cstddef>
#include <deque>

namespace vask {

// The screen's picture, over SDL's own surface, which it never releases. It keeps a list of dirty
// rectangles for the next flip. The console variable "gfx_flip_rects_size" limits the list (0: no
// limit); beyond it everything counts as changed.
class CPixelScreenSDL : public CPixelSDL, public sdl::CScreenHolder {
 public:
  // Registers the console variables.
  CPixelScreenSDL();
  ~CPixelScreenSDL() override;

  // The graphics task owns the screen.
  bool IsStatic() const override { return true; }
  void Flip() override;
  void AddDirtyRect(const CRect<int>& rect) override;
  // Also clips to the current surface: SDL may have made it smaller since the last reset.
  CRect<int> ClipRect(const CRect<int>& rect) const override;

  // Takes SDL's surface, whose size and pixels may have changed at the same address. The
  // process-wide screen rectangle becomes the surface's.
  void Reset(SDL_Surface* surface);
  // The picture is empty until the next reset.
  void GiveUpScreen() override;

  // Whether the next flip shows everything, and how many rectangles it shows otherwise.
  bool IsUpdateAll() const { return myUpdateAll; }
  std::size_t GetDirtyCount() const { return myDirtyRects.size(); }

  // While on (the default), every flip shows the whole screen.
  static bool& FullFlip();

 private:
  bool myUpdateAll = false;
  std::deque<CRect<int>> myDirtyRects;
};

}  // namespace vask
