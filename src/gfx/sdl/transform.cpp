#include "gfx/sdl/transform.h"

#include "gfx/sdl/pixelrow.h"
#include "utils/log/log.h"

#include <SDL_rotozoom.h>

#include <cmath>

namespace vask::sdl {

namespace {

using RowOperation = void (*)(std::uint32_t*, int);

void ForEachRow(SDL_Surface* surface, RowOperation operation) {
  const CSurfaceLock lock(surface);
  for (int y = 0; lock.IsOpen() && y < surface->h; ++y) {
    operation(Row32(*surface, y), surface->w);
  }
}

// Runs `make` on a premultiplied copy of the source without a colour key: SDL_gfx averages the four
// channels separately, and treats the colour key as a colour.
template <typename Make>
SurfacePtr Transformed(SDL_Surface* source, bool smooth, Make make) {
  const SurfacePtr copy = CopyWithAlpha(source, Bounds(*source));
  if (copy == nullptr) {
    return nullptr;
  }
  if (smooth) {
    ForEachRow(copy.get(), PremultiplyRow);
  }
  SurfacePtr result(make(copy.get()));
  if (result == nullptr) {
    Log().Warning() << "A picture of " << source->w << " x " << source->h
                    << " can't be scaled or rotated: " << SDL_GetError() << "\n";
    return nullptr;
  }
  if (smooth) {
    ForEachRow(result.get(), UnpremultiplyRow);
  }
  SDL_SetColorKey(result.get(), 0, 0);
  SDL_SetAlpha(result.get(), SDL_SRCALPHA, SDL_ALPHA_OPAQUE);
  // SDL_gfx leaves the guard rows below the picture inside the clip rectangle.
  SDL_SetClipRect(result.get(), nullptr);
  return result;
}

}  // namespace

SurfacePtr Scaled(SDL_Surface* source, int width, int height, bool smooth) {
  if (!IsValidSize(width, height)) {
    return nullptr;
  }
  const double zoomX = static_cast<double>(width) / source->w;
  const double zoomY = static_cast<double>(height) / source->h;
  return Transformed(source, smooth, [=](SDL_Surface* copy) {
    return zoomSurface(copy, zoomX, zoomY, smooth ? SMOOTHING_ON : SMOOTHING_OFF);
  });
}

SurfacePtr Rotated(SDL_Surface* source, double degrees, bool smooth) {
  if (!std::isfinite(degrees)) {
    return nullptr;
  }
  int width = 0;
  int height = 0;
  rotozoomSurfaceSize(source->w, source->h, degrees, 1.0, &width, &height);
  if (!IsValidSize(width, height)) {
    return nullptr;
  }
  return Transformed(source, smooth, [=](SDL_Surface* copy) {
    return rotozoomSurface(copy, degrees, 1.0, smooth ? SMOOTHING_ON : SMOOTHING_OFF);
  });
}

}  // namespace vask::sdl
