// Drawing a picture onto another: what is cut off, and which pixels come out. The reference is the
// blend computed pixel by pixel in floating point.

#include "gfx/sdl/pixelrow.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace vask::test {
namespace {

using Gfx::ImagePtr;
using Rect = CRect<int>;

constexpr sdl::SPixelFormat kOpaque{32, 0xFF0000, 0xFF00, 0xFF, 0};
constexpr sdl::SPixelFormat kAlpha{32, 0xFF0000, 0xFF00, 0xFF, 0xFF000000};
constexpr sdl::SPixelFormat kLowAlpha{32, 0xFF000000, 0xFF0000, 0xFF00, 0xFF};
constexpr sdl::SPixelFormat kRedLow{32, 0xFF, 0xFF00, 0xFF0000, 0xFF000000};
constexpr sdl::SPixelFormat k16Bits{16, 0xF800, 0x7E0, 0x1F, 0};

// Random pixels; a quarter of them transparent, a quarter opaque.
ImagePtr NewNoise(int width, int height, const sdl::SPixelFormat& format, unsigned seed) {
  std::mt19937 random(seed);
  return Filled(new CPixelSDL(sdl::NewSurface(width, height, format).release()), [&](int, int) {
    const auto pixel = static_cast<std::uint32_t>(random());
    const std::uint32_t kinds[] = {pixel & ~format.alphaMask, pixel | format.alphaMask, pixel,
                                   pixel};
    return kinds[random() % 4];
  });
}

class Blit : public testing::Test {
 protected:
  CTestScreen myScreen{64, 48};
};

// Random rectangles, many of them partly or wholly outside, between two pictures that show only a
// part of their surfaces.
TEST_F(Blit, IsCutOnAllSides) {
  const ImagePtr source =
      Filled(Gfx::NewBuffer(9, 7), [](int x, int y) { return 0xFF000001U + 16U * x + y; });
  const std::vector<std::uint32_t> sourcePixels = PixelsOf(*source);
  source->SetRect({2, 1, 60, 5});
  const Rect shown{0, 0, 7, 5};  // of the source, which ends before its rectangle
  const Rect part{1, 2, 6, 5};   // of the target
  std::mt19937 random(3);
  const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  for (int round = 0; round < 2000; ++round) {
    const ImagePtr target(Gfx::NewBuffer(8, 8));
    target->SetRect(part);
    const int width = round % 50 == 0 ? INT_MAX : below(12) - 2;
    const Rect from{below(13) - 4, below(13) - 4, width, below(12) - 2};
    const Rect to{below(19) - 9, below(19) - 9, 0, 0};
    if (round % 2 == 0) {
      EXPECT_TRUE(source->Blit(target.get(), from, to));
    } else {
      Gfx::CopyPixels(source.get(), from, target.get(), to.x, to.y);
    }
    const std::vector<std::uint32_t> pixels = PixelsOf(*target);
    for (int i = 0; i < 8 * 8; ++i) {
      const int x = i % 8 - part.x - to.x + from.x;
      const int y = i / 8 - part.y - to.y + from.y;
      const bool isDrawn =
          part.Contains(i % 8, i / 8) && from.Contains(x, y) && shown.Contains(x, y);
      ASSERT_EQ(pixels[i], isDrawn ? sourcePixels[(y + 1) * 9 + x + 2] : 0) << round << " " << i;
    }
  }
  EXPECT_FALSE(source->BlitTo(Gfx::NullImage()));
}

struct SPixel {
  double colors[3];  // 0 to 255
  double alpha;      // 0 to 1
};

SPixel At(const IPixel& picture, int x, int y) {
  const SDL_Surface& surface = *SurfaceOf(picture);
  const std::uint32_t pixel = sdl::ReadPixel(surface, x, y);
  std::uint8_t c[4];
  SDL_GetRGBA(pixel, surface.format, &c[0], &c[1], &c[2], &c[3]);
  const bool isKey = (surface.flags & SDL_SRCCOLORKEY) != 0 && pixel == surface.format->colorkey;
  return {{c[0] * 1.0, c[1] * 1.0, c[2] * 1.0}, isKey ? 0.0 : c[3] / 255.0};
}

TEST_F(Blit, IsCloseToTheExactBlend) {
  struct SCase {
    const char* name;
    sdl::SPixelFormat source = kAlpha;
    sdl::SPixelFormat target = kAlpha;
    double slack = 1;  // of a colour
    int size = 30;
  };
  const SCase cases[] = {
      {.name = "usual", .size = 257},
      {.name = "keyed", .source = kOpaque},
      {.name = "16 bits", .source = k16Bits, .target = kLowAlpha, .slack = 8},
      {.name = "onto the screen", .target = kOpaque, .slack = 2},
      {.name = "other order onto the screen", .source = kRedLow, .target = kOpaque, .slack = 2},
      {.name = "low alpha", .source = kLowAlpha},
      {.name = "onto low alpha", .target = kLowAlpha},
  };
  for (const SCase& c : cases) {
    SCOPED_TRACE(c.name);
    const ImagePtr source = NewNoise(c.size, c.size, c.source, 1);
    if (c.source.alphaMask == 0) {
      SDL_Rect left{0, 0, 15, 30};
      SDL_FillRect(SurfaceOf(*source), &left, SDL_MapRGB(SurfaceOf(*source)->format, 255, 0, 255));
      sdl::SetColorKey(SurfaceOf(*source), {255, 0, 255});
    }
    const ImagePtr before = NewNoise(c.size, c.size, c.target, 2);
    const ImagePtr target = NewNoise(c.size, c.size, c.target, 2);
    target->SetParam(IPixel::kAlphaBlit, c.target.alphaMask != 0);
    source->Blit(target.get(), {3, 2, c.size, c.size}, {1, 1, 0, 0});
    for (int i = 0; i < (c.size - 3) * (c.size - 3); ++i) {
      const int x = i % (c.size - 3);
      const int y = i / (c.size - 3);
      const SPixel above = At(*source, 3 + x, 2 + y);
      const SPixel below = At(*before, 1 + x, 1 + y);
      const SPixel result = At(*target, 1 + x, 1 + y);
      const double a = above.alpha;
      const double b = below.alpha * (1 - a);
      const bool isMixed = a > 0 && a < 1 && b > 0;
      ASSERT_NEAR(result.alpha * 255, (a + b) * 255, 0.51) << i;
      for (int k = 0; a + b > 0 && k < 3; ++k) {
        const double exact = (above.colors[k] * a + below.colors[k] * b) / (a + b);
        ASSERT_NEAR(result.colors[k], exact, isMixed ? c.slack : c.slack - 0.99) << i;
      }
    }
  }
}

TEST_F(Blit, CopiesPixelsBetweenFormatsWithKeyAndAlphaAsTheyAre) {
  const ImagePtr keyed(Gfx::NewScreenBuffer(1, 1, Gfx::kMagenta));
  keyed->PutPixel(0, 0, {255, 0, 255});
  const ImagePtr faint(NewPicture(1, 1, {10, 20, 30, 40}));
  const ImagePtr target(NewPicture(1, 1, {0, 0, 0, 0}));
  Gfx::CopyPixels(keyed.get(), {0, 0, 1, 1}, target.get(), 0, 0);
  EXPECT_EQ(PixelsOf(*target)[0], 0xFFFF00FFU) << "not drawn: copied";
  EXPECT_NE(SurfaceOf(*keyed)->flags & SDL_SRCCOLORKEY, 0U) << "the key is kept";
  Gfx::CopyPixels(faint.get(), {0, 0, 1, 1}, keyed.get(), 0, 0);
  EXPECT_EQ(PixelsOf(*keyed)[0] & 0xFFFFFF, 0x0A141EU);
  EXPECT_NE(SurfaceOf(*faint)->flags & SDL_SRCALPHA, 0U) << "blending is kept";
}

TEST(PremultipliedAlpha, IsRoundedBothWays) {
  for (std::uint32_t i = 0; i < 256 * 256; ++i) {
    const std::uint32_t alpha = i >> 8;
    const std::uint32_t color = i & 0xFF;
    std::uint32_t pixels[] = {alpha << 24 | color << 16 | 0xFF00 | color};
    std::uint32_t back[] = {pixels[0]};
    sdl::PremultiplyRow(pixels, 1);
    const auto product = static_cast<std::uint32_t>(std::lround(color * alpha / 255.0));
    ASSERT_EQ(pixels[0], alpha << 24 | product << 16 | alpha << 8 | product);
    sdl::UnpremultiplyRow(back, 1);
    const double quotient = alpha == 0 ? 0 : std::min(color * 255.0 / alpha, 255.0);
    ASSERT_NEAR(back[0] & 0xFF, quotient, 0.51) << alpha << " " << color;
    ASSERT_EQ(back[0] >> 16 & 0xFF, back[0] & 0xFF);
  }
}

}  // namespace
}  // namespace vask::test
