#pragma once

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

#include "gfx/gfx.h"
#include "gfx/sdl/gfxfactorysdl.h"
#include "gfx/sdl/pixelsdl.h"
#include "gfx/sdl/video.h"

namespace vask::test {

// A screen of SDL's off-screen driver with the SDL factory installed.
class CSdlScreen : public testing::Test {
 protected:
  static constexpr int kWidth = 64;
  static constexpr int kHeight = 48;

  void SetUp() override { Open(32); }
  void TearDown() override {
    Gfx::SetFactory(nullptr);
    Gfx::ScaleSmoothing() = 0;
    Gfx::RotateSmoothing() = 1;
    SDL_Quit();
  }

  void Open(int depth) {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    ASSERT_NE(sdl::OpenVideoMode(kWidth, kHeight, depth, 0), nullptr);
    Gfx::SetFactory(&myFactory);
  }

  CGfxFactorySDL myFactory;
};

inline SDL_Surface* SurfaceOf(IPixel* image) {
  return dynamic_cast<CPixelSDL&>(*image).GetSurface();
}
inline SDL_Surface* SurfaceOf(const Gfx::ImagePtr& image) { return SurfaceOf(image.get()); }

inline std::uint32_t& PixelOf(SDL_Surface* surface, int x, int y) {
  return sdl::Row32(*surface, y)[x];
}

// A 32-bit surface with and without alpha, in the layout of the off-screen driver.
inline sdl::SurfacePtr NewSurface32(int width, int height, bool hasAlpha) {
  sdl::SPixelFormat format = sdl::AlphaFormat();
  format.alphaMask = hasAlpha ? format.alphaMask : 0;
  return sdl::NewSurface(width, height, format);
}

// Random pixels, with many of the alphas that are treated apart.
inline void Scramble(SDL_Surface* surface, unsigned seed) {
  std::minstd_rand engine(seed);
  std::uniform_int_distribution<std::uint32_t> random;
  for (int y = 0; y < surface->h; ++y) {
    for (int x = 0; x < surface->w; ++x) {
      std::uint32_t pixel = random(engine);
      const std::uint32_t kind = random(engine) % 8;
      pixel = kind < 2 ? pixel & 0x00FFFFFF : kind < 4 ? pixel | 0xFF000000 : pixel;
      PixelOf(surface, x, y) = pixel;
    }
  }
}

// Writes a BMP of one row with these colours (red, green, blue from the high byte down).
inline void WriteBmp(const std::string& name, std::initializer_list<std::uint32_t> colors) {
  const sdl::SurfacePtr row(SDL_CreateRGBSurface(0, static_cast<int>(colors.size()), 1, 32,
                                                 0xFF0000, 0x00FF00, 0x0000FF, 0));
  int x = 0;
  for (const std::uint32_t color : colors) {
    PixelOf(row.get(), x++, 0) = color;
  }
  ASSERT_EQ(SDL_SaveBMP(row.get(), name.c_str()), 0);
}

}  // namespace vask::test
