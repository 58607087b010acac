#pragma once

#include "utils/color.h"
#include "utils/rect.h"

#include <SDL.h>

#include <cstdint>
#include <memory>

// Helpers for SDL surfaces: ownership, locks, formats and copies that keep all four channels.
namespace vask::sdl {

struct SSurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SSurfaceDeleter>;

// The largest side of a picture; not far beyond SDL's 16-bit row length overflows.
inline constexpr int kMaxSide = 8192;
bool IsValidSize(int width, int height);

// Locks a surface while it lives, so that its pixels can be accessed.
class CSurfaceLock {
 public:
  explicit CSurfaceLock(SDL_Surface* surface);
  ~CSurfaceLock();
  CSurfaceLock(const CSurfaceLock&) = delete;
  CSurfaceLock& operator=(const CSurfaceLock&) = delete;

  // False when SDL gives no access.
  bool IsOpen() const { return myIsOpen; }

 private:
  SDL_Surface* myMustUnlock = nullptr;
  bool myIsOpen = true;
};

// Switches a surface's alpha and colour key off while it lives, so that blits from it copy the
// pixels as they are.
class CPlainSource {
 public:
  explicit CPlainSource(SDL_Surface* surface);
  ~CPlainSource();
  CPlainSource(const CPlainSource&) = delete;
  CPlainSource& operator=(const CPlainSource&) = delete;

 private:
  SDL_Surface* mySurface;
  std::uint32_t myFlags;
  std::uint32_t myColorKey;
  std::uint8_t myAlpha;
};

// The layout of pixels in memory.
struct SPixelFormat {
  int bits = -1;
  std::uint32_t redMask = 0;
  std::uint32_t greenMask = 0;
  std::uint32_t blueMask = 0;
  std::uint32_t alphaMask = 0;
};
SPixelFormat FormatOf(const SDL_Surface& surface);
// The 32-bit format with alpha to which SDL converts pictures for the screen. Works without video.
SPixelFormat AlphaFormat();

// A new surface, filled with 0; null when the size is out of range or SDL fails.
SurfacePtr NewSurface(int width, int height, const SPixelFormat& format, std::uint32_t flags = 0);
// The same in the 32-bit format with alpha, from which blits blend.
SurfacePtr NewAlphaSurface(int width, int height, std::uint32_t flags = 0);
// A copy in the screen's format, without and with an alpha channel.
SurfacePtr ToScreenFormat(SDL_Surface* surface);
SurfacePtr ToScreenAlphaFormat(SDL_Surface* surface);

CRect<int> Bounds(const SDL_Surface& surface);
bool HasSameLayout(const SDL_Surface& one, const SDL_Surface& other);

// Pixels of 1 to 4 bytes at a position inside the surface, which is locked.
std::uint32_t ReadPixel(const SDL_Surface& surface, int x, int y);
void WritePixel(const SDL_Surface& surface, int x, int y, std::uint32_t pixel);
std::uint8_t* RowAddress(const SDL_Surface& surface, int y);
std::uint32_t* Row32(const SDL_Surface& surface, int y);

// Sets the colour key. A surface with alpha keeps none, as only some versions of SDL mind it: there
// the pixels of that colour become transparent, and blits from the surface blend.
void SetColorKey(SDL_Surface* surface, const CColor& key);

// The smallest part of the area, which lies inside the surface, outside which blits from it change
// nothing. The area itself for a surface that can't be locked, or from which blits do not blend by
// an alpha in the highest byte.
CRect<int> SolidPart(SDL_Surface* surface, const CRect<int>& area);

// Copies the pixels of the area as they are to a position of the target; both lie inside their
// surfaces.
void CopyPixels(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y);
// The part as a surface of its own with the source's format, palette, colour key and blending; 0
// where the part reaches beyond the source. Null on failure.
SurfacePtr CopyPixels(SDL_Surface* source, const CRect<int>& part);

// Copies the area to a position of a target in the 32-bit format with alpha; both lie inside their
// surfaces. A source without alpha counts as opaque, less its colour key.
void CopyWithAlpha(SDL_Surface* source, const CRect<int>& area, SDL_Surface* target, int x, int y);
// The area as such a surface of its own. Null on failure.
SurfacePtr CopyWithAlpha(SDL_Surface* source, const CRect<int>& area);

}  // namespace vask::sdl
