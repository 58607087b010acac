#include <cmath>
#include <cstdlib>
#include <vector>

#include "gfx/sdl/rgbablit.h"
#include "sdl_support.h"

namespace vask::test {

namespace {

struct SStraight {
  double alpha;
  double colors[3];
};

SStraight OverReference(std::uint32_t source, std::uint32_t target) {
  const double a = (source >> 24) / 255.0;
  const double b = (target >> 24) / 255.0;
  SStraight result{a + b * (1 - a), {}};
  for (int i = 0; i < 3; ++i) {
    const double s = source >> 8 * i & 0xFF;
    const double t = target >> 8 * i & 0xFF;
    result.colors[i] = result.alpha > 0 ? (s * a + t * b * (1 - a)) / result.alpha : 0;
  }
  return result;
}

class CBlitTest : public CSdlScreen {};

}  // namespace

// Widths around the four pixels of a step, at every alignment, onto both kinds of target.
TEST_F(CBlitTest, PlainBlitsGiveExactlySdlsPixels) {
  for (int width = 1; width <= 19; ++width) {
    for (const bool targetHasAlpha : {false, true}) {
      for (const bool sourceHasAlpha : {false, true}) {
        const auto source = NewSurface32(width + 3, 5, sourceHasAlpha);
        const auto ours = NewSurface32(24, 8, targetHasAlpha);
        const auto sdls = NewSurface32(24, 8, targetHasAlpha);
        Scramble(source.get(), static_cast<unsigned>(width));
        Scramble(ours.get(), 99);
        Scramble(sdls.get(), 99);
        sdl::BlitPlain(source.get(), {width % 4, 1, width, 3}, ours.get(), 2, 4);
        SDL_Rect from{static_cast<Sint16>(width % 4), 1, static_cast<Uint16>(width), 3};
        SDL_Rect to{2, 4, 0, 0};
        SDL_UpperBlit(source.get(), &from, sdls.get(), &to);
        for (int i = 0; i < 24 * 8; ++i) {
          ASSERT_EQ(PixelOf(ours.get(), i % 24, i / 24), PixelOf(sdls.get(), i % 24, i / 24))
              << "width " << width << ", pixel " << i << ", alpha of the target " << targetHasAlpha
              << ", of the source " << sourceHasAlpha;
        }
      }
    }
  }
}

TEST_F(CBlitTest, OverBlitIsWithinOneOfTheExactBlend) {
  constexpr int kSide = 257;
  const auto source = NewSurface32(kSide, kSide, true);
  const auto target = NewSurface32(kSide, kSide, true);
  Scramble(source.get(), 1);
  Scramble(target.get(), 2);
  std::vector<std::uint32_t> before;
  for (int i = 0; i < kSide * kSide; ++i) {
    before.push_back(PixelOf(target.get(), i % kSide, i / kSide));
  }
  sdl::BlitOver(source.get(), {0, 0, kSide, kSide}, target.get(), 0, 0);
  for (int i = 0; i < kSide * kSide; ++i) {
    const std::uint32_t from = PixelOf(source.get(), i % kSide, i / kSide);
    const std::uint32_t onto = before[static_cast<std::size_t>(i)];
    const std::uint32_t result = PixelOf(target.get(), i % kSide, i / kSide);
    if (from >> 24 == 0) {
      ASSERT_EQ(result, onto);
      continue;
    }
    if (from >> 24 == 255 || onto >> 24 == 0) {
      ASSERT_EQ(result, from) << std::hex << onto;
      continue;
    }
    const SStraight exact = OverReference(from, onto);
    ASSERT_NEAR(result >> 24, exact.alpha * 255, 1) << std::hex << from << " over " << onto;
    for (int c = 0; c < 3; ++c) {
      ASSERT_NEAR(result >> 8 * c & 0xFF, exact.colors[c], 1)
          << std::hex << from << " over " << onto;
    }
  }
}

TEST_F(CBlitTest, OverBlitCountsASourceWithoutAlphaAsOpaqueLessItsKey) {
  for (const int depth : {16, 32}) {
    const sdl::SPixelFormat format = depth == 16 ? sdl::SPixelFormat{16, 0xF800, 0x07E0, 0x001F, 0}
                                                 : sdl::SPixelFormat{32, 0xFF0000, 0xFF00, 0xFF, 0};
    const auto source = sdl::NewSurface(2, 1, format);
    sdl::SetColorKey(source.get(), CColor(255, 0, 255));
    sdl::WritePixel(*source, 0, 0, SDL_MapRGB(source->format, 255, 0, 255));
    sdl::WritePixel(*source, 1, 0, SDL_MapRGB(source->format, 255, 255, 255));
    const auto target = NewSurface32(2, 1, true);
    PixelOf(target.get(), 0, 0) = PixelOf(target.get(), 1, 0) = 0x40102030;
    sdl::BlitOver(source.get(), {0, 0, 2, 1}, target.get(), 0, 0);
    EXPECT_EQ(PixelOf(target.get(), 0, 0), 0x40102030U) << depth;
    // SDL widens the five bits of a channel to 8 with up to one unit lost.
    EXPECT_EQ(PixelOf(target.get(), 1, 0) | 0x00010101U, 0xFFFFFFFFU) << depth;
  }
}

}  // namespace vask::test
