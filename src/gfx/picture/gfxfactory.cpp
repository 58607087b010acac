#include "gfx/picture/gfxfactory.h"

namespace vask {

void CGfxFactory::CopyExact(IPixel*, const CRect<int>&, IPixel*, int, int) {}

}  // namespace vask
