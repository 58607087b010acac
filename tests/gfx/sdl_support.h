#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/testpicture.h"

namespace vask::test {

class CSdlScreen : public testing::Test {
 protected:
  CTestScreen myScreen{64, 48};
};

inline SDL_Surface* SurfaceOf(IPixel* image) {
  return dynamic_cast<CPixelSDL&>(*image).GetSurface();
}
inline SDL_Surface* SurfaceOf(const Gfx::ImagePtr& image) { return SurfaceOf(image.get()); }

// Of a 32-bit surface.
inline std::uint32_t& PixelOf(SDL_Surface* surface, int x, int y = 0) {
  return sdl::Row32(*surface, y)[x];
}
inline std::uint32_t& PixelOf(const Gfx::ImagePtr& image, int x, int y = 0) {
  return PixelOf(SurfaceOf(image), x, y);
}
inline std::vector<std::uint32_t> PixelsOf(SDL_Surface* surface) {
  std::vector<std::uint32_t> pixels;
  for (int i = 0; i < surface->w * surface->h; ++i) {
    pixels.push_back(PixelOf(surface, i % surface->w, i / surface->w));
  }
  return pixels;
}

// A 32-bit surface of random pixels, with many of the alphas that are treated apart.
inline sdl::SurfacePtr NewNoise(int width, int height, bool hasAlpha, int seed) {
  sdl::SPixelFormat format = sdl::AlphaFormat();
  format.alphaMask = hasAlpha ? format.alphaMask : 0;
  sdl::SurfacePtr surface = sdl::NewSurface(width, height, format);
  std::mt19937 random(static_cast<unsigned>(seed));
  for (int i = 0; i < width * height; ++i) {
    const std::uint32_t pixel = static_cast<std::uint32_t>(random());
    const auto kind = random() % 8;
    PixelOf(surface.get(), i % width, i / width) = kind < 2   ? pixel & 0x00FFFFFF
                                                   : kind < 4 ? pixel | 0xFF000000
                                                              : pixel;
  }
  return surface;
}

// Writes a BMP of one row with these colours (red, green, blue from the high byte down).
inline void WriteBmp(const std::string& name, const std::vector<std::uint32_t>& colors) {
  const sdl::SurfacePtr row =
      sdl::NewSurface(static_cast<int>(colors.size()), 1, {32, 0xFF0000, 0x00FF00, 0x0000FF, 0});
  std::copy(colors.begin(), colors.end(), &PixelOf(row.get(), 0));
  ASSERT_EQ(SDL_SaveBMP(row.get(), name.c_str()), 0);
}

}  // namespace vask::test
