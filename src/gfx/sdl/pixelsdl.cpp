#include "gfx/sdl/pixelsdl.h"

#include "gfx/picture/gfx.h"
#include "gfx/sdl/pixelrow.h"
#include "gfx/sdl/rgbablit.h"
#include "gfx/sdl/sdltextures.h"
#include "gfx/sdl/tgawriter.h"
#include "gfx/sdl/transform.h"
#include "utils/outputfile.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

namespace vask {

namespace {

// One axis of an intersection; wide, since rectangles come from files and may lie anywhere.
struct SSpan {
  long long begin;
  long long end;
};

SSpan Cut(SSpan span, int begin, int length) {
  return {std::max<long long>(span.begin, begin),
          std::min<long long>(span.end, static_cast<long long>(begin) + length)};
}

CRect<int> ToRect(SSpan x, SSpan y) {
  if (x.begin >= x.end || y.begin >= y.end) {
    return {};
  }
  return {static_cast<int>(x.begin), static_cast<int>(y.begin), static_cast<int>(x.end - x.begin),
          static_cast<int>(y.end - y.begin)};
}

SSpan Shifted(int begin, int length, int by) {
  const long long moved = static_cast<long long>(begin) + by;
  return {moved, moved + length};
}

CColor Unpacked(const SDL_PixelFormat& format, std::uint32_t pixel) {
  CColor color;
  if (format.palette != nullptr) {
    SDL_GetRGB(pixel, &format, &color.r, &color.g, &color.b);
    return color;
  }
  color.rMask = format.Rmask;
  color.gMask = format.Gmask;
  color.bMask = format.Bmask;
  color.aMask = format.Amask;
  color.rShift = format.Rshift;
  color.gShift = format.Gshift;
  color.bShift = format.Bshift;
  color.aShift = format.Ashift;
  color.Unpack(pixel);
  color.a = format.Amask != 0 ? color.a : std::uint8_t{255};
  return color;
}

std::uint8_t Mix(int from, int to, int weight, int whole) {
  return static_cast<std::uint8_t>(from + (to - from) * weight / whole);
}

// The colour over the pixel, as a pixel of the format.
std::uint32_t Blended(const SDL_PixelFormat& format, std::uint32_t pixel, const CColor& color) {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  std::uint8_t a = 0;
  SDL_GetRGBA(pixel, &format, &r, &g, &b, &a);
  const int weight = 255 * color.a;
  const int whole = weight + a * (255 - color.a);
  return SDL_MapRGBA(&format, Mix(r, color.r, weight, whole), Mix(g, color.g, weight, whole),
                     Mix(b, color.b, weight, whole), static_cast<std::uint8_t>(whole / 255));
}

std::optional<int> ToNumber(const CAnyContainer& value) {
  if (const bool* flag = value.Get<bool>()) {
    return *flag ? 1 : 0;
  }
  if (const int* number = value.Get<int>()) {
    return *number;
  }
  if (const unsigned* number = value.Get<unsigned>()) {
    return static_cast<int>(*number);
  }
  return std::nullopt;
}

// The alpha that a pixel keeps when the whole picture is faded to `alpha`.
std::array<std::uint32_t, 256> FadeTable(int alpha) {
  const float factor = static_cast<float>(std::clamp(alpha, 0, 255)) / 255.0F;
  std::array<std::uint32_t, 256> table{};
  for (std::size_t a = 0; a < table.size(); ++a) {
    table[a] = static_cast<std::uint32_t>(static_cast<float>(a) / 255.0F * factor * 255.0F) << 24;
  }
  return table;
}

void Fade(const SDL_Surface& surface, const CRect<int>& area, int alpha) {
  const auto table = FadeTable(alpha);
  for (int y = 0; y < area.h; ++y) {
    std::uint32_t* row = sdl::Row32(surface, area.y + y) + area.x;
    for (int x = 0; x < area.w; ++x) {
      if (row[x] != 0) {  // most of a faded text is nothing
        row[x] = (row[x] & ~sdl::kAlphaBits) | table[row[x] >> 24];
      }
    }
  }
}

// Never creates the texture manager: pictures may die after it.
void ReleaseSurface(SDL_Surface* surface) {
  if (CSDLTextures* textures = CSDLTextures::PeekSingletonPtr()) {
    textures->Release(surface);
  } else {
    SDL_FreeSurface(surface);
  }
}

IPixel* NewPicture(sdl::SurfacePtr surface) {
  return surface != nullptr ? new CPixelSDL(surface.release()) : Gfx::NullImage();
}

}  // namespace

CPixelSDL::CPixelSDL(SDL_Surface* surface) : mySurface(surface) {
  if (surface != nullptr) {
    myFullRect = sdl::Bounds(*surface);
    myRect = myFullRect;
  }
}

CPixelSDL::CPixelSDL(SDL_Surface* surface, const CColor& colorKey, std::string fileName)
    : CPixelSDL(surface) {
  myFileName = std::move(fileName);
  if (surface != nullptr) {
    sdl::SetColorKey(surface, colorKey);
  }
}

CPixelSDL::~CPixelSDL() { ReleaseSurface(mySurface); }

void CPixelSDL::PutPixel(int x, int y, const CColor& color) {
  const CRect<int> at = ClipRect({x, y, 1, 1});
  if (at.IsEmpty() || color.a == 0) {
    return;
  }
  DropClip();
  const sdl::CSurfaceLock lock(mySurface);
  if (!lock.IsOpen()) {
    return;
  }
  const SDL_PixelFormat& format = *mySurface->format;
  const std::uint32_t pixel = color.a == 255
                                  ? SDL_MapRGBA(&format, color.r, color.g, color.b, color.a)
                                  : Blended(format, sdl::ReadPixel(*mySurface, at.x, at.y), color);
  sdl::WritePixel(*mySurface, at.x, at.y, pixel);
}

CColor CPixelSDL::GetPixel(int x, int y) const {
  const CRect<int> at = ClipRect({x, y, 1, 1});
  if (at.IsEmpty()) {
    return {};
  }
  const sdl::CSurfaceLock lock(mySurface);
  return lock.IsOpen() ? Unpacked(*mySurface->format, sdl::ReadPixel(*mySurface, at.x, at.y))
                       : CColor();
}

void CPixelSDL::ClearRect(const CRect<int>& rect) {
  const CRect<int> area = ClipRect(rect);
  if (area.IsEmpty() || mySurface->format->BytesPerPixel != 4) {
    return;
  }
  DropClip();
  const sdl::CSurfaceLock lock(mySurface);
  for (int y = 0; lock.IsOpen() && y < area.h; ++y) {
    std::fill_n(sdl::Row32(*mySurface, area.y + y) + area.x, area.w, 0U);
  }
}

IPixel* CPixelSDL::Scale(int width, int height) const {
  SDL_Surface* source = GetClippedSurface();
  return source == nullptr
             ? Gfx::NullImage()
             : NewPicture(sdl::Scaled(source, width, height, Gfx::ScaleSmoothing() != 0));
}

IPixel* CPixelSDL::Rotate(float degrees) const {
  SDL_Surface* source = GetClippedSurface();
  return source == nullptr ? Gfx::NullImage()
                           : NewPicture(sdl::Rotated(source, degrees, Gfx::RotateSmoothing() != 0));
}

IPixel* CPixelSDL::CloneWithAlpha(int alpha) const {
  IPixel* clone = Clone();
  if (const auto* picture = dynamic_cast<CPixelSDL*>(clone)) {
    const sdl::CSurfaceLock lock(picture->mySurface);
    Fade(*picture->mySurface, ShownArea(), alpha);
  }
  return clone;
}

IPixel* CPixelSDL::Clone() const {
  sdl::SurfacePtr surface = sdl::NewAlphaSurface(myFullRect.w, myFullRect.h);
  if (surface == nullptr) {
    return Gfx::NullImage();
  }
  const CRect<int> area = ShownArea();
  if (!area.IsEmpty()) {
    sdl::CopyWithAlpha(mySurface, area, surface.get(), area.x, area.y);
  }
  auto* clone = new CPixelSDL(surface.release());
  clone->myUseAlphaBlit = true;
  clone->SetRect(myRect);
  return clone;
}

CPixelSDL::SCopy CPixelSDL::ClipCopy(const CPixelSDL& target, const CRect<int>& source, int x,
                                     int y) const {
  const CRect<int> from = ClipRect(source);
  const auto shift = [](int cut, int begin, int origin, int position) {
    const long long moved = static_cast<long long>(cut) - begin - origin + position;
    return static_cast<int>(std::clamp<long long>(moved, -1'000'000, 1'000'000));
  };
  const int wantedX = shift(from.x, source.x, myRect.x, x);
  const int wantedY = shift(from.y, source.y, myRect.y, y);
  const CRect<int> to = target.ClipRect({wantedX, wantedY, from.w, from.h});
  if (to.IsEmpty()) {
    return {};
  }
  const int lostX = to.x - target.myRect.x - wantedX;
  const int lostY = to.y - target.myRect.y - wantedY;
  return {{from.x + lostX, from.y + lostY, to.w, to.h}, to.x, to.y};
}

bool CPixelSDL::Draw(CPixelSDL& target, const SCopy& copy) const {
  if (copy.area.IsEmpty()) {
    return true;
  }
  target.DropClip();
  const bool blendsAlpha = target.myUseAlphaBlit && target.mySurface->format->Amask != 0;
  const auto blit = blendsAlpha ? sdl::BlendOver : sdl::Blit;
  blit(mySurface, copy.area, target.mySurface, copy.x, copy.y);
  return true;
}

bool CPixelSDL::Blit(IPixel* target, const CRect<int>& source, const CRect<int>& dest) const {
  auto* onto = dynamic_cast<CPixelSDL*>(target);
  return onto != nullptr && Draw(*onto, ClipCopy(*onto, source, dest.x, dest.y));
}

bool CPixelSDL::BlitTo(IPixel* target) const {
  return Blit(target, {0, 0, myRect.w, myRect.h}, {});
}

void CPixelSDL::SetRect(const CRect<int>& rect) {
  if (rect != myRect) {
    DropClip();
    myRect = rect;
  }
}

void CPixelSDL::SetParam(int which, const CAnyContainer& value) {
  const std::optional<int> number = ToNumber(value);
  if (!number) {
    return;
  }
  switch (which) {
    case kAlphaBlit:
      myUseAlphaBlit = *number != 0;
      return;
    case kScaleSmoothing:
      Gfx::ScaleSmoothing() = *number;
      return;
    case kRotateSmoothing:
      Gfx::RotateSmoothing() = *number;
      return;
    default:
      return;
  }
}

bool CPixelSDL::SaveToFile(const std::string& name) const {
  SDL_Surface* surface = GetClippedSurface();
  if (surface == nullptr || IsPipe(name)) {
    return false;
  }
  return name.ends_with("tga") ? sdl::SaveTga(surface, name)
                               : SDL_SaveBMP(surface, name.c_str()) == 0;
}

CRect<int> CPixelSDL::ClipRect(const CRect<int>& rect) const {
  const SSpan x = Cut(Shifted(rect.x, rect.w, myRect.x), myRect.x, myRect.w);
  const SSpan y = Cut(Shifted(rect.y, rect.h, myRect.y), myRect.y, myRect.h);
  return ToRect(Cut(x, 0, myFullRect.w), Cut(y, 0, myFullRect.h));
}

CRect<int> CPixelSDL::ShownArea() const { return ClipRect({0, 0, myRect.w, myRect.h}); }

SDL_Surface* CPixelSDL::GetClippedSurface() const {
  if (mySurface == nullptr || myRect == myFullRect) {
    return mySurface;
  }
  if (myClippedSurface == nullptr) {
    myClippedSurface = sdl::CopyPixels(mySurface, myRect);
  }
  return myClippedSurface.get();
}

void CPixelSDL::SetSurface(SDL_Surface* surface, bool releaseOld) {
  DropClip();
  if (releaseOld && surface != mySurface) {
    ReleaseSurface(mySurface);
  }
  mySurface = surface;
  myFullRect = surface != nullptr ? sdl::Bounds(*surface) : CRect<int>{};
  myRect = myFullRect;
}

CRect<int> CPixelSDL::SolidPart() const {
  const CRect<int> area = ShownArea();
  if (area.IsEmpty()) {
    return {};
  }
  const CRect<int> solid = sdl::SolidPart(mySurface, area);
  return {solid.x - myRect.x, solid.y - myRect.y, solid.w, solid.h};
}

void CPixelSDL::CopyPixels(const CRect<int>& source, CPixelSDL& target, int x, int y) const {
  const SCopy copy = ClipCopy(target, source, x, y);
  if (!copy.area.IsEmpty()) {
    target.DropClip();
    sdl::CopyPixels(mySurface, copy.area, target.mySurface, copy.x, copy.y);
  }
}

}  // namespace vask
