#include "gfx/sdl/rgbablit.h"
#include "sdl_support.h"

namespace vask::test {

using CBlitTest = CSdlScreen;

// Widths around the four pixels of a step, at every alignment, between all kinds of surfaces.
TEST_F(CBlitTest, PlainBlitsGiveExactlySdlsPixels) {
  for (int i = 0; i < 19 * 4; ++i) {
    const int width = 1 + i / 4;
    const auto source = NewNoise(width + 3, 5, i % 2 == 0, width);
    const auto ours = NewNoise(24, 8, i % 4 < 2, 99);
    const auto sdls = NewNoise(24, 8, i % 4 < 2, 99);
    sdl::BlitPlain(source.get(), {width % 4, 1, width, 3}, ours.get(), 2, 4);
    SDL_Rect from{static_cast<Sint16>(width % 4), 1, static_cast<Uint16>(width), 3};
    SDL_Rect to{2, 4, 0, 0};
    SDL_UpperBlit(source.get(), &from, sdls.get(), &to);
    ASSERT_EQ(PixelsOf(ours.get()), PixelsOf(sdls.get()))
        << "width " << width << ", kind " << i % 4;
  }
}

TEST_F(CBlitTest, OverBlitIsWithinOneOfTheExactBlend) {
  const auto source = NewNoise(257, 257, true, 1);
  const auto target = NewNoise(257, 257, true, 2);
  const auto above = PixelsOf(source.get());
  const auto below = PixelsOf(target.get());
  sdl::BlitOver(source.get(), {0, 0, 257, 257}, target.get(), 0, 0);
  const auto results = PixelsOf(target.get());
  for (std::size_t i = 0; i < results.size(); ++i) {
    const std::uint32_t from = above[i];
    const std::uint32_t onto = below[i];
    const std::uint32_t result = results[i];
    const double a = (from >> 24) / 255.0;
    const double b = (onto >> 24) / 255.0 * (1 - a);
    if (from >> 24 == 0 || from >> 24 == 255 || onto >> 24 == 0) {
      ASSERT_EQ(result, from >> 24 == 0 ? onto : from) << std::hex << from << " over " << onto;
      continue;
    }
    ASSERT_NEAR(result >> 24, (a + b) * 255, 1) << std::hex << from << " over " << onto;
    for (int shift = 0; shift < 24; shift += 8) {
      const double exact = ((from >> shift & 0xFF) * a + (onto >> shift & 0xFF) * b) / (a + b);
      ASSERT_NEAR(result >> shift & 0xFF, exact, 1) << std::hex << from << " over " << onto;
    }
  }
}

TEST_F(CBlitTest, OverBlitCountsASourceWithoutAlphaAsOpaqueLessItsKey) {
  for (const sdl::SPixelFormat& format : {sdl::SPixelFormat{16, 0xF800, 0x07E0, 0x001F, 0},
                                          sdl::SPixelFormat{32, 0xFF0000, 0xFF00, 0xFF, 0}}) {
    const auto source = sdl::NewSurface(2, 1, format);
    sdl::SetColorKey(source.get(), CColor(255, 0, 255));
    sdl::WritePixel(*source, 0, 0, SDL_MapRGB(source->format, 255, 0, 255));
    sdl::WritePixel(*source, 1, 0, SDL_MapRGB(source->format, 255, 255, 255));
    const Gfx::ImagePtr target(Gfx::NewBuffer(2, 1));
    PixelOf(target, 0) = PixelOf(target, 1) = 0x40102030;
    sdl::BlitOver(source.get(), {0, 0, 2, 1}, SurfaceOf(target), 0, 0);
    EXPECT_EQ(PixelOf(target, 0), 0x40102030U) << format.bits;
    // SDL widens the five bits of a channel to 8 with up to one unit lost.
    EXPECT_EQ(PixelOf(target, 1) | 0x00010101U, 0xFFFFFFFFU) << format.bits;
  }
}

}  // namespace vask::test
