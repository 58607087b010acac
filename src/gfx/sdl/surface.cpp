#include "gfx/sdl/surface.h"

#include "gfx/sdl/pixelrow.h"
#include "gfx/sdl/video.h"
#include "utils/log/log.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace vask::sdl {

namespace {

SDL_Rect ToSdl(const CRect<int>& rect) {
  return {static_cast<Sint16>(rect.x), static_cast<Sint16>(rect.y), static_cast<Uint16>(rect.w),
          static_cast<Uint16>(rect.h)};
}

std::uint8_t* PixelAddress(const SDL_Surface& surface, int x, int y) {
  const std::ptrdiff_t column = x;
  return RowAddress(surface, y) + column * surface.format->BytesPerPixel;
}

std::uint32_t ColorBits(const SDL_PixelFormat& format) {
  return format.palette != nullptr ? 0xFFFFFFFF : format.Rmask | format.Gmask | format.Bmask;
}

// Writes 0 into the pixels of `cleared`, from the position on, whose counterpart in the area of
// `keyed` has the colour of the key.
void ClearKeyPixels(const SDL_Surface& keyed, const CRect<int>& area, const SDL_Surface& cleared,
                    int left, int top) {
  const std::uint32_t mask = ColorBits(*keyed.format);
  const std::uint32_t key = keyed.format->colorkey & mask;
  for (int y = 0; y < area.h; ++y) {
    for (int x = 0; x < area.w; ++x) {
      if ((ReadPixel(keyed, area.x + x, area.y + y) & mask) == key) {
        WritePixel(cleared, left + x, top + y, 0);
      }
    }
  }
}

// Gives the target, of the same layout, the source's palette, colour key and blending.
void CopySettings(const SDL_Surface& source, SDL_Surface* target) {
  const SDL_PixelFormat& format = *source.format;
  if (format.palette != nullptr) {
    SDL_SetColors(target, format.palette->colors, 0, format.palette->ncolors);
  }
  SDL_SetAlpha(target, source.flags & SDL_SRCALPHA, format.alpha);
  SDL_SetColorKey(target, source.flags & SDL_SRCCOLORKEY, format.colorkey);
}

}  // namespace

bool IsValidSize(int width, int height) {
  return width >= 1 && height >= 1 && width <= kMaxSide && height <= kMaxSide;
}

CSurfaceLock::CSurfaceLock(SDL_Surface* surface) {
  if (SDL_MUSTLOCK(surface)) {
    myIsOpen = SDL_LockSurface(surface) == 0;
    myMustUnlock = myIsOpen ? surface : nullptr;
  }
  myIsOpen = myIsOpen && surface->pixels != nullptr;
}

CSurfaceLock::~CSurfaceLock() {
  if (myMustUnlock != nullptr) {
    SDL_UnlockSurface(myMustUnlock);
  }
}

CPlainSource::CPlainSource(SDL_Surface* surface)
    : mySurface(surface),
      myFlags(surface->flags),
      myColorKey(surface->format->colorkey),
      myAlpha(surface->format->alpha) {
  if ((myFlags & SDL_SRCALPHA) != 0) {
    SDL_SetAlpha(surface, 0, myAlpha);
  }
  if ((myFlags & SDL_SRCCOLORKEY) != 0) {
    SDL_SetColorKey(surface, 0, 0);
  }
}

CPlainSource::~CPlainSource() {
  if ((myFlags & SDL_SRCALPHA) != 0) {
    SDL_SetAlpha(mySurface, myFlags & (SDL_SRCALPHA | SDL_RLEACCEL), myAlpha);
  }
  if ((myFlags & SDL_SRCCOLORKEY) != 0) {
    SDL_SetColorKey(mySurface, myFlags & (SDL_SRCCOLORKEY | SDL_RLEACCEL), myColorKey);
  }
}

SPixelFormat FormatOf(const SDL_Surface& surface) {
  const SDL_PixelFormat& format = *surface.format;
  return {format.BitsPerPixel, format.Rmask, format.Gmask, format.Bmask, format.Amask};
}

SPixelFormat AlphaFormat() {
  const SDL_Surface* screen = GetVideoSurface();
  const bool redIsLow = screen != nullptr && screen->format->Rmask < screen->format->Bmask;
  if (redIsLow) {
    return {32, 0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000};
  }
  return {32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};
}

SurfacePtr NewSurface(int width, int height, const SPixelFormat& format, std::uint32_t flags) {
  if (!IsValidSize(width, height)) {
    return nullptr;
  }
  SurfacePtr surface(SDL_CreateRGBSurface(flags, width, height, format.bits, format.redMask,
                                          format.greenMask, format.blueMask, format.alphaMask));
  if (surface == nullptr) {
    Log().Warning() << "There is no picture of " << width << " x " << height << ": "
                    << SDL_GetError() << "\n";
  }
  return surface;
}

SurfacePtr NewAlphaSurface(int width, int height, std::uint32_t flags) {
  SurfacePtr surface = NewSurface(width, height, AlphaFormat(), flags);
  if (surface != nullptr) {
    SDL_SetAlpha(surface.get(), SDL_SRCALPHA, SDL_ALPHA_OPAQUE);
  }
  return surface;
}

SurfacePtr ToScreenFormat(SDL_Surface* surface) {
  if (GetVideoSurface() != nullptr) {
    return SurfacePtr(SDL_DisplayFormat(surface));
  }
  return SurfacePtr(SDL_ConvertSurface(surface, surface->format, surface->flags));
}

SurfacePtr ToScreenAlphaFormat(SDL_Surface* surface) {
  if (GetVideoSurface() != nullptr) {
    return SurfacePtr(SDL_DisplayFormatAlpha(surface));
  }
  const SurfacePtr sample = NewSurface(1, 1, AlphaFormat());
  return SurfacePtr(sample != nullptr ? SDL_ConvertSurface(surface, sample->format, SDL_SRCALPHA)
                                      : nullptr);
}

CRect<int> Bounds(const SDL_Surface& surface) { return {0, 0, surface.w, surface.h}; }

bool HasSameLayout(const SDL_Surface& one, const SDL_Surface& other) {
  const SDL_PixelFormat& a = *one.format;
  const SDL_PixelFormat& b = *other.format;
  return a.BitsPerPixel == b.BitsPerPixel && a.palette == nullptr && b.palette == nullptr &&
         a.Rmask == b.Rmask && a.Gmask == b.Gmask && a.Bmask == b.Bmask && a.Amask == b.Amask;
}

std::uint32_t ReadPixel(const SDL_Surface& surface, int x, int y) {
  const std::uint8_t* address = PixelAddress(surface, x, y);
  switch (surface.format->BytesPerPixel) {
    case 1:
      return *address;
    case 2: {
      std::uint16_t pixel = 0;
      std::memcpy(&pixel, address, sizeof(pixel));
      return pixel;
    }
    case 3:
      if constexpr (SDL_BYTEORDER == SDL_LIL_ENDIAN) {
        return static_cast<std::uint32_t>(address[0] | address[1] << 8 | address[2] << 16);
      } else {
        return static_cast<std::uint32_t>(address[2] | address[1] << 8 | address[0] << 16);
      }
    default: {
      std::uint32_t pixel = 0;
      std::memcpy(&pixel, address, sizeof(pixel));
      return pixel;
    }
  }
}

void WritePixel(const SDL_Surface& surface, int x, int y, std::uint32_t pixel) {
  std::uint8_t* address = PixelAddress(surface, x, y);
  switch (surface.format->BytesPerPixel) {
    case 1:
      *address = static_cast<std::uint8_t>(pixel);
      return;
    case 2: {
      const auto value = static_cast<std::uint16_t>(pixel);
      std::memcpy(address, &value, sizeof(value));
      return;
    }
    case 3:
      for (int byte = 0; byte < 3; ++byte) {
        const int shift = SDL_BYTEORDER == SDL_LIL_ENDIAN ? 8 * byte : 16 - 8 * byte;
        address[byte] = static_cast<std::uint8_t>(pixel >> shift);
      }
      return;
    default:
      std::memcpy(address, &pixel, sizeof(pixel));
  }
}

std::uint8_t* RowAddress(const SDL_Surface& surface, int y) {
  const std::ptrdiff_t row = y;
  return static_cast<std::uint8_t*>(surface.pixels) + row * surface.pitch;
}

std::uint32_t* Row32(const SDL_Surface& surface, int y) {
  return reinterpret_cast<std::uint32_t*>(RowAddress(surface, y));
}

void SetColorKey(SDL_Surface* surface, const CColor& key) {
  SDL_SetColorKey(surface, SDL_SRCCOLORKEY, SDL_MapRGB(surface->format, key.r, key.g, key.b));
  if (surface->format->Amask == 0) {
    return;
  }
  SDL_SetAlpha(surface, SDL_SRCALPHA, SDL_ALPHA_OPAQUE);
  const CSurfaceLock lock(surface);
  if (lock.IsOpen()) {
    ClearKeyPixels(*surface, Bounds(*surface), *surface, 0, 0);
  }
  SDL_SetColorKey(surface, 0, 0);
}

CRect<int> SolidPart(SDL_Surface* surface, const CRect<int>& area) {
  const CSurfaceLock lock(surface);
  const bool blends = (surface->flags & SDL_SRCALPHA) != 0;
  if (!lock.IsOpen() || !blends || surface->format->Amask != kAlphaBits) {
    return area;
  }
  int left = area.x + area.w;
  int right = area.x;
  int top = area.y + area.h;
  int bottom = area.y;
  for (int y = area.y; y < area.y + area.h; ++y) {
    const std::uint32_t* const row = Row32(*surface, y);
    int x = area.x;
    int end = area.x + area.w;
    while (x < end && row[x] <= ~kAlphaBits) {
      ++x;
    }
    while (end > x && row[end - 1] <= ~kAlphaBits) {
      --end;
    }
    if (x < end) {
      left = std::min(left, x);
      right = std::max(right, end);
      top = std::min(top, y);
      bottom = y + 1;
    }
  }
  return top < bottom ? CRect<int>{left, top, right - left, bottom - top} : CRect<int>{};
}

void CopyPixels(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y) {
  if (!HasSameLayout(*source, *target)) {
    const CPlainSource plain(source);
    SDL_Rect from = ToSdl(area);
    SDL_Rect to = ToSdl({x, y, area.w, area.h});
    SDL_UpperBlit(source, &from, target, &to);
    return;
  }
  const CSurfaceLock sourceLock(source);
  const CSurfaceLock targetLock(target);
  if (!sourceLock.IsOpen() || !targetLock.IsOpen()) {
    return;
  }
  const std::size_t bytes = static_cast<std::size_t>(area.w) * source->format->BytesPerPixel;
  for (int row = 0; row < area.h; ++row) {
    std::memcpy(PixelAddress(*target, x, y + row), PixelAddress(*source, area.x, area.y + row),
                bytes);
  }
}

SurfacePtr CopyPixels(SDL_Surface* source, const CRect<int>& part) {
  SurfacePtr copy = NewSurface(part.w, part.h, FormatOf(*source));
  if (copy == nullptr) {
    return nullptr;
  }
  CopySettings(*source, copy.get());
  const CRect<int> area = part.Intersection(Bounds(*source));
  if (!area.IsEmpty()) {
    CopyPixels(source, area, copy.get(), area.x - part.x, area.y - part.y);
  }
  return copy;
}

void CopyWithAlpha(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y) {
  CopyPixels(source, area, target, x, y);
  const bool isKeyed = (source->flags & SDL_SRCCOLORKEY) != 0 && source->format->Amask == 0;
  if (!isKeyed) {
    return;
  }
  const CSurfaceLock sourceLock(source);
  const CSurfaceLock targetLock(target);
  if (sourceLock.IsOpen() && targetLock.IsOpen()) {
    ClearKeyPixels(*source, area, *target, x, y);
  }
}

SurfacePtr CopyWithAlpha(SDL_Surface* source, const CRect<int>& area) {
  SurfacePtr copy = NewAlphaSurface(area.w, area.h);
  if (copy != nullptr) {
    CopyWithAlpha(source, area, copy.get(), 0, 0);
  }
  return copy;
}

}  // namespace vask::sdl
