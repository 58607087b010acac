#include "gfx/picture/gfxfactory.h"

namespace vask {

void CGfxFactory::CopyPixels(IPixel*, const CRect<int>&, IPixel*, int, int) {}

CRect<int> CGfxFactory::SolidPart(const IPixel& picture) {
  return {0, 0, picture.GetWidth(), picture.GetHeight()};
}

}  // namespace vask
