#pragma once

#include "utils/rect.h"

#include <SDL.h>

namespace vask::sdl {

// Draws the area of the source at a position of the target. The result is that of the classic
// SDL_UpperBlit (SDL 2 rounds a blend in another way); the usual cases are faster. The target keeps
// its alpha. Area and position are inside the surfaces.
void Blit(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y);

// Draws the area of the source over a target that has an alpha channel, and blends alpha as well
// (the "over" operator, straight alpha). A source without alpha counts as opaque, less its colour
// key.
void BlendOver(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y);

}  // namespace vask::sdl
