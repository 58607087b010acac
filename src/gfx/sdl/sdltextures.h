#pragma once

#include <SDL.h>

#include "gfx/texturemanager.h"

namespace vask {

struct CSDLSurfaceReleaser {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

// The surfaces of all pictures that come from files.
using CSDLTextures = CTextureManager<SDL_Surface*, CSDLSurfaceReleaser>;

}  // namespace vask
