#include "gfx/picture/pixelnull.h"

#include "gfx/picture/gfx.h"

namespace vask {

IPixel* CPixelNull::Scale(int, int) const { return Gfx::NullImage(); }
IPixel* CPixelNull::Rotate(float) const { return Gfx::NullImage(); }
IPixel* CPixelNull::CloneWithAlpha(int) const { return Gfx::NullImage(); }
IPixel* CPixelNull::Clone() const { return Gfx::NullImage(); }

}  // namespace vask
