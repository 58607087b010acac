#include "gfx/sdl/rgbablit.h"

#include "gfx/sdl/pixelrow.h"
#include "gfx/sdl/surface.h"

namespace vask::sdl {

namespace {

using RowOperation = void (*)(const std::uint32_t*, std::uint32_t*, int);

void ForEachRow(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y,
                RowOperation operation) {
  const CSurfaceLock sourceLock(source);
  const CSurfaceLock targetLock(target);
  if (!sourceLock.IsOpen() || !targetLock.IsOpen()) {
    return;
  }
  for (int row = 0; row < area.h; ++row) {
    operation(Row32(*source, area.y + row) + area.x, Row32(*target, y + row) + x, area.w);
  }
}

// Four bytes per pixel with the colours in the lower three.
bool HasByteColors(const SDL_PixelFormat& format) {
  return format.BytesPerPixel == 4 && (format.Rmask | format.Gmask | format.Bmask) == ~kAlphaBits &&
         format.Rshift % 8 == 0 && format.Gshift % 8 == 0 && format.Bshift % 8 == 0;
}

bool HasSameColors(const SDL_PixelFormat& one, const SDL_PixelFormat& other) {
  return HasByteColors(one) && HasByteColors(other) && one.Rmask == other.Rmask &&
         one.Gmask == other.Gmask && one.Bmask == other.Bmask;
}

bool CoversWholeTarget(const SDL_Surface& target) {
  const SDL_Rect& clip = target.clip_rect;
  return clip.x == 0 && clip.y == 0 && clip.w == target.w && clip.h == target.h;
}

}  // namespace

void Blit(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y) {
  const bool blends = (source->flags & SDL_SRCALPHA) != 0;
  const bool isKeyed = (source->flags & SDL_SRCCOLORKEY) != 0;
  const bool canStandIn = CoversWholeTarget(*target) && source != target;
  if (canStandIn && blends && source->format->Amask == kAlphaBits &&
      HasSameColors(*source->format, *target->format)) {
    ForEachRow(source, area, target, x, y, BlendRow);
  } else if (canStandIn && !blends && !isKeyed && HasSameLayout(*source, *target)) {
    CopyPixels(source, area, target, x, y);
  } else {
    SDL_Rect from{static_cast<Sint16>(area.x), static_cast<Sint16>(area.y),
                  static_cast<Uint16>(area.w), static_cast<Uint16>(area.h)};
    SDL_Rect to{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
    SDL_UpperBlit(source, &from, target, &to);
  }
}

void BlendOver(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y) {
  if (source->format->Amask == kAlphaBits && target->format->Amask == kAlphaBits &&
      HasSameColors(*source->format, *target->format)) {
    ForEachRow(source, area, target, x, y, OverRow);
    return;
  }
  // Any other pair of formats meets in the one that the rows know.
  const SurfacePtr from = CopyWithAlpha(source, area);
  const SurfacePtr onto = CopyWithAlpha(target, {x, y, area.w, area.h});
  if (from != nullptr && onto != nullptr) {
    const CRect<int> whole = Bounds(*from);
    ForEachRow(from.get(), whole, onto.get(), 0, 0, OverRow);
    CopyPixels(onto.get(), whole, target, x, y);
  }
}

}  // namespace vask::sdl
