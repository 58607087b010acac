#pragma once

#include "gfx/sdl/surface.h"

namespace vask::sdl {

// Scaled and rotated copies of a surface, made by SDL_gfx: 32 bits with alpha, no colour key.
// Smoothing uses premultiplied alpha, so that transparent surroundings do not darken the edges.
// Null when a side would be outside 1 to kMaxSide, or on failure.
SurfacePtr Scaled(SDL_Surface* source, int width, int height, bool smooth);
// Counter-clockwise, about the centre, in a surface that holds all of it.
SurfacePtr Rotated(SDL_Surface* source, double degrees, bool smooth);

}  // namespace vask::sdl
