#pragma once

#include "gfx/picture/pixel.h"

#include <string>

namespace vask {

// The abstract maker of pictures. What it makes is owned by the caller; what cannot be made is the
// null picture.
class CGfxFactory {
 public:
  virtual ~CGfxFactory() = default;
  // A buffer of the screen's format, whose pixels of the key colour are not drawn.
  virtual IPixel* NewBuffer(int width, int height, const CColor& colorKey) = 0;
  // A transparent buffer.
  virtual IPixel* NewBuffer(int width, int height) = 0;
  virtual IPixel* LoadImage(const std::string& file, const CColor& colorKey) = 0;
  // A picture that shares the surface of another.
  virtual IPixel* NewBuffer(IPixel* image) = 0;
  // Kept for a kind of picture that does not exist yet; null.
  virtual IPixel* Reserved() = 0;
  // Deletes the picture unless it is null or static.
  virtual void FreeImage(IPixel* image) = 0;

  // Behind Gfx::CopyPixels; a factory whose pictures cannot be copied copies nothing.
  virtual void CopyPixels(IPixel* source, const CRect<int>& sourceRect, IPixel* target, int x,
                          int y);
};

}  // namespace vask
