#pragma once

#include "gfx/picture/pixel.h"

#include <string>

namespace vask {

// The abstract maker of pictures. The caller owns what it makes; where it cannot make one it
// returns the null picture.
class CGfxFactory {
 public:
  virtual ~CGfxFactory() = default;
  // A buffer in the screen's format; its pixels of the key colour are not drawn.
  virtual IPixel* NewBuffer(int width, int height, const CColor& colorKey) = 0;
  // A transparent buffer.
  virtual IPixel* NewBuffer(int width, int height) = 0;
  virtual IPixel* LoadImage(const std::string& file, const CColor& colorKey) = 0;
  // A picture that shares the surface of another.
  virtual IPixel* NewBuffer(IPixel* image) = 0;
  // For a kind of picture that does not exist yet; returns null.
  virtual IPixel* Reserved() = 0;
  // Deletes the picture unless it is null or static.
  virtual void FreeImage(IPixel* image) = 0;

  // Implements Gfx::CopyPixels; the base copies nothing.
  virtual void CopyPixels(IPixel* source, const CRect<int>& sourceRect, IPixel* target, int x,
                          int y);
  // Implements Gfx::SolidPart; the base returns all of the picture.
  virtual CRect<int> SolidPart(const IPixel& picture);
};

}  // namespace vask
