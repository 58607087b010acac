#include "gfx/picture/gfxfactory.h"

namespace vask {

void CGfxFactory::CopyPixels(IPixel*, const CRect<int>&, IPixel*, int, int) {}

}  // namespace vask
