#pragma once

#include <SDL.h>

#include <string>

namespace vask::sdl {

// Writes the surface as an uncompressed Truevision TGA file: with a palette for 8-bit surfaces,
// else with 24 bits per pixel, or 32 when the surface has an alpha channel. False, with SDL's error
// text, on failure and for surfaces of less than 8 bits.
bool SaveTga(SDL_Surface* surface, const std::string& file);

}  // namespace vask::sdl
