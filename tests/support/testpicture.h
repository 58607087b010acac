#pragma once

#include "gfx/sdl/gfxfactorysdl.h"
#include "gfx/sdl/pixelscreensdl.h"
#include "gfx/sdl/video.h"
#include "gfx/sprite/screenlayer.h"

#include <vector>

namespace vask::test {

// The colour as its picture keeps it: packed by its own masks and shifts.
inline std::uint32_t Packed(const CColor& color) {
  const auto place = [](std::uint8_t component, std::uint8_t shift, std::uint32_t mask) {
    return (std::uint32_t{component} << shift) & mask;
  };
  return place(color.r, color.rShift, color.rMask) | place(color.g, color.gShift, color.gMask) |
         place(color.b, color.bShift, color.bMask) | place(color.a, color.aShift, color.aMask);
}

using Gfx::ImagePtr;
using Rect = CRect<int>;

inline SDL_Surface* SurfaceOf(const IPixel& picture) {
  return dynamic_cast<const CPixelSDL&>(picture).GetSurface();
}

// All pixels of a 32-bit surface, row by row.
inline std::vector<std::uint32_t> PixelsOf(const IPixel& picture) {
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < picture.GetSurfaceHeight(); ++y) {
    const std::uint32_t* row = sdl::Row32(*SurfaceOf(picture), y);
    pixels.insert(pixels.end(), row, row + picture.GetSurfaceWidth());
  }
  return pixels;
}

// What the screen of SDL shows there, as 0xRRGGBB.
inline unsigned ScreenColor(int x, int y) {
  return sdl::ReadPixel(*sdl::GetVideoSurface(), x, y) & 0xFFFFFF;
}

// A 32-bit SDL screen with the picture factory installed, for as long as it lives.
class CTestScreen {
 public:
  CTestScreen(int width, int height) {
    SDL_Init(SDL_INIT_VIDEO);
    Gfx::SetFactory(&myFactory);
    Resize(width, height);
    Gfx::SetScreen(&myScreen);
  }
  ~CTestScreen() {
    CScreenLayer::DeleteSingleton();
    Gfx::SetScreen(nullptr);
    myScreen.SetSurface(nullptr, false);
    Gfx::SetFactory(nullptr);
    SDL_Quit();
  }
  CTestScreen& operator=(CTestScreen&&) = delete;  // neither moved nor copied

  void Resize(int width, int height, int depth = 32) {
    myScreen.Reset(sdl::OpenVideoMode(width, height, depth, SDL_SWSURFACE));
  }
  CPixelScreenSDL& Picture() { return myScreen; }

 private:
  CGfxFactorySDL myFactory;
  CPixelScreenSDL myScreen;
};

// The picture with each pixel of its 32-bit surface made from its position.
template <typename PixelAt>
ImagePtr Filled(IPixel* picture, PixelAt pixelAt) {
  for (int i = 0; i < picture->GetWidth() * picture->GetHeight(); ++i) {
    const int x = i % picture->GetWidth();
    const int y = i / picture->GetWidth();
    sdl::WritePixel(*SurfaceOf(*picture), x, y, pixelAt(x, y));
  }
  return ImagePtr(picture);
}

// A picture with an alpha channel, in one colour.
inline IPixel* NewPicture(int width, int height, const CColor& c) {
  const auto pixel = static_cast<std::uint32_t>(c.a << 24 | c.r << 16 | c.g << 8 | c.b);
  return Filled(Gfx::NewBuffer(width, height), [=](int, int) { return pixel; }).release();
}

}  // namespace vask::test
