#pragma once

#include "utils/color.h"
#include "utils/containers/container.h"
#include "utils/rect.h"

#include <string>

namespace vask {

// The interface of pictures: an image from a file, an off-screen buffer, or the screen. A picture
// shows a part of its surface, the image rectangle. Pictures are made and freed by the functions of
// gfx/picture/gfx.h; one that could not be made is the null picture, never a null pointer.
//
// What copies pixels from one picture to another has one of these names:
//
//   Blit, BlitTo     draws a part, or all, onto another picture: blended, less the colour key
//   BlendOver        the blend onto a target that keeps an alpha of its own (gfx/sdl/rgbablit.h)
//   Clone            a new picture of the same pixels, with an alpha channel
//   CloneWithAlpha   the same, faded
//   CopyPixels       copies a part as it is, alpha and key colour included (Gfx, gfx/sdl/surface.h)
//   CopyWithAlpha    the same into a format with alpha: the colour key becomes transparent
class IPixel {
 public:
  enum EParam : int { kAlphaBlit = 0, kScaleSmoothing = 1, kRotateSmoothing = 2 };

  virtual ~IPixel() = default;
  // Whether FreeImage leaves the picture alive.
  virtual bool IsStatic() const = 0;
  // 0 the null picture, 1 an SDL picture.
  virtual int GetType() const = 0;
  virtual bool IsEmpty() const = 0;
  // The position is relative to the image rectangle; outside it nothing happens. Alpha 255 writes,
  // other alphas blend.
  virtual void PutPixel(int x, int y, const CColor& color) = 0;
  // The pixel with the picture's own masks and shifts; opaque black outside.
  virtual CColor GetPixel(int x, int y) const = 0;
  // Makes the rectangle transparent black.
  virtual void ClearRect(const CRect<int>& rect) = 0;
  virtual int GetWidth() const = 0;
  virtual int GetHeight() const = 0;
  // New pictures, owned by the caller.
  virtual IPixel* Scale(int width, int height) const = 0;
  virtual IPixel* Rotate(float degrees) const = 0;
  virtual IPixel* CloneWithAlpha(int alpha) const = 0;
  virtual IPixel* Clone() const = 0;
  // Draws `source` of this picture at the position of `dest` on the target (rectangles relative to
  // the image rectangles, clipped to them); false when the target cannot be drawn on.
  virtual bool Blit(IPixel* target, const CRect<int>& source, const CRect<int>& dest) const = 0;
  // Draws the whole picture at the target's origin.
  virtual bool BlitTo(IPixel* target) const = 0;
  // The image rectangle, in pixels of the surface.
  virtual void SetRect(const CRect<int>& rect) = 0;
  virtual CRect<int> GetRect() const = 0;
  virtual bool IsRectChanged() const = 0;
  virtual int GetSurfaceWidth() const = 0;
  virtual int GetSurfaceHeight() const = 0;
  virtual int GetX() const = 0;
  virtual int GetY() const = 0;
  // kAlphaBlit (bool): whether blits onto this picture blend its alpha as well. The other two set
  // process-wide switches.
  virtual void SetParam(int which, const CAnyContainer& value) = 0;
  // A name that ends in "tga" becomes a TGA file, any other a BMP file; false on failure.
  virtual bool SaveToFile(const std::string& name) const = 0;
  virtual std::string GetFileName() const = 0;
  // For the screen only: Flip shows what was drawn, AddDirtyRect adds a dirty rectangle.
  virtual void Flip() = 0;
  virtual void AddDirtyRect(const CRect<int>& rect) = 0;
};

}  // namespace vask
