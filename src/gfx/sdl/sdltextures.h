#pragma once

#include "gfx/picture/texturemanager.h"

#include <SDL.h>

namespace vask {

struct CSDLSurfaceReleaser {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

// The surfaces of all pictures that come from files.
using CSDLTextures = CTextureManager<SDL_Surface*, CSDLSurfaceReleaser>;

}  // namespace vask
