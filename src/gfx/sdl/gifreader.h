#pragma once

#include "gfx/sdl/surface.h"

#include <string>

namespace vask::sdl {

// Whether the file begins as a GIF file does.
bool IsGifFile(const std::string& fileName);

// The first picture of a GIF file, read by SDL_image but kept from what it cannot bear: it follows
// a null pointer for a size that SDL has no surfaces for, and looks for ever for the end of what
// the file cuts off. Null when there is none.
SurfacePtr LoadGifFile(const std::string& fileName);

}  // namespace vask::sdl
