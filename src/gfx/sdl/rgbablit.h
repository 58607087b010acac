#pragma once

#include "utils/rect.h"

#include <SDL.h>

namespace vask::sdl {

// Draws the area of the source at a position of the target, as SDL_UpperBlit does and with exactly
// its pixels, only faster in the cases that a frame is made of. The target keeps its alpha. Area
// and position lie inside the surfaces.
void Blit(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y);

// Draws the area of the source over the target and blends alpha as well ("over", straight alpha):
// an opaque source pixel replaces, a transparent one changes nothing, and on an empty pixel the
// source is copied. A source without alpha counts as opaque, less its colour key. For targets with
// an alpha channel.
void BlendOver(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y);

}  // namespace vask::sdl
