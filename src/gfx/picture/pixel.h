#pragma once

#include "utils/color.h"
#include "utils/containers/container.h"
#include "utils/rect.h"

#include <string>

namespace vask {

// The one interface through which a picture is handled: an image from a file, an off-screen buffer,
// or the screen. A picture stands for a part of its surface, the image rectangle. Pictures are made
// and freed through the functions of gfx/gfx.h; what could not be made is the null picture, never a
// null pointer.
class IPixel {
 public:
  enum EParam : int { kAlphaBlit = 0, kScaleSmoothing = 1, kRotateSmoothing = 2 };

  virtual ~IPixel() = default;
  // Whether FreeImage leaves the picture alone.
  virtual bool IsStatic() const = 0;
  // 0 the null picture, 1 an SDL picture.
  virtual int GetType() const = 0;
  virtual bool IsEmpty() const = 0;
  // Position relative to the image rectangle; nothing outside it. Alpha 255 writes, other alphas
  // blend.
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
  // kAlphaBlit (bool): how blits onto this picture blend. The other two are process-wide switches.
  virtual void SetParam(int which, const CAnyContainer& value) = 0;
  // A name that ends in "tga" becomes a TGA file, any other a BMP file; false on failure.
  virtual bool SaveToFile(const std::string& name) const = 0;
  virtual std::string GetFileName() const = 0;
  // Of the screen only: shows what was drawn; notes a changed rectangle.
  virtual void Flip() = 0;
  virtual void AddDirtyRect(const CRect<int>& rect) = 0;
};

}  // namespace vask
