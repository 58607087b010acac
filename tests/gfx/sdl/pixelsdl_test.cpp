// Pictures over SDL: whose surface they share, their pixels, drawing one onto another (compared
// with the blend computed pixel by pixel in floating point), and pictures made from a part of a
// sheet.

#include "gfx/sdl/pixelsdl.h"

#include "gfx/sdl/sdltextures.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace vask::test {
namespace {

using sdl::SPixelFormat;

constexpr SPixelFormat kOpaque{32, 0xFF0000, 0xFF00, 0xFF, 0};
constexpr SPixelFormat kAlpha{32, 0xFF0000, 0xFF00, 0xFF, 0xFF000000};
constexpr SPixelFormat kLowAlpha{32, 0xFF000000, 0xFF0000, 0xFF00, 0xFF};
constexpr SPixelFormat kRedLow{32, 0xFF, 0xFF00, 0xFF0000, 0xFF000000};
constexpr SPixelFormat k24Bits{24, 0xFF0000, 0xFF00, 0xFF, 0};
constexpr SPixelFormat k16Bits{16, 0xF800, 0x7E0, 0x1F, 0};

constexpr std::uint32_t kKey = 0xFF00FF;  // as a pixel

IPixel* PictureOf(int width, int height, const SPixelFormat& format) {
  return new CPixelSDL(sdl::NewSurface(width, height, format).release());
}
// With a colour key or with an alpha channel.
IPixel* NewSheet(int width, int height, bool isKeyed) {
  return isKeyed ? Gfx::NewScreenBuffer(width, height, Gfx::kMagenta)
                 : Gfx::NewBuffer(width, height);
}
// Random pixels; a quarter of them transparent, a quarter opaque.
ImagePtr NewNoise(int size, const SPixelFormat& format, unsigned seed) {
  std::mt19937 random(seed);
  return Filled(PictureOf(size, size, format), [&](int, int) {
    const auto pixel = static_cast<std::uint32_t>(random());
    const std::array kinds{pixel & ~format.alphaMask, pixel | format.alphaMask, pixel, pixel};
    return kinds[random() % 4];
  });
}

class Picture : public testing::Test {
 protected:
  CTestScreen myScreen{64, 48};
};

TEST_F(Picture, OneFileIsOneSurfaceUntilItsLastPictureDies) {
  ImagePtr(NewPicture(10, 20, {17, 34, 51}))->SaveToFile("door.bmp");

  const Gfx::ImagePtr picture(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
  picture->Blit(Gfx::GetScreen(), {0, 0, 10, 20}, {5, 5, 10, 20});

  EXPECT_EQ(myScreen.At(14, 24), 0x112233U);
  EXPECT_EQ(myScreen.At(15, 24), 0U);
  ImagePtr second(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
  ImagePtr third(Gfx::NewBuffer(second.get()));
  CSDLTextures& textures = CSDLTextures::GetSingleton();
  EXPECT_EQ(SurfaceOf(*third), SurfaceOf(*picture));
  EXPECT_EQ(textures.GetCount("door.bmp"), 3);
  second.reset();
  EXPECT_EQ(textures.GetCount(third->GetFileName()), 2);
}

// SDL fills the pixel that proves reading; with that, reading proves writing. All formats keep the
// colour exactly.
TEST_F(Picture, PixelsAreWrittenAndReadInEveryFormatInsideTheImageRectangle) {
  for (const SPixelFormat& format : {k16Bits, k24Bits, kRedLow, kLowAlpha}) {
    SCOPED_TRACE(testing::Message() << format.bits << " bits, alpha " << format.alphaMask);
    const ImagePtr picture(PictureOf(6, 5, format));
    SDL_Surface* surface = SurfaceOf(*picture);
    const std::uint32_t pixel = SDL_MapRGBA(surface->format, 255, 16, 66, 255);
    SDL_Rect filled{2, 3, 1, 1};
    SDL_FillRect(surface, &filled, pixel);
    EXPECT_EQ(test::Packed(picture->GetPixel(2, 3)), pixel);
    picture->SetRect({1, 2, 4, 3});
    for (int i = 0; i < 6 * 5; ++i) {
      const int x = i % 6 - 1;
      const int y = i / 6 - 2;
      const bool isInside = Rect{0, 0, 4, 3}.Contains(x, y);
      picture->PutPixel(x, y, {255, 16, 66});
      EXPECT_EQ(sdl::ReadPixel(*surface, i % 6, i / 6), isInside ? pixel : 0) << i;
      EXPECT_EQ(test::Packed(picture->GetPixel(x, y)), isInside ? pixel : test::Packed(CColor()))
          << i;
    }
    picture->PutPixel(0, 0, {80, 255, 100, 0});
    EXPECT_EQ(test::Packed(picture->GetPixel(0, 0)), pixel) << "alpha 0 changes nothing";
    picture->PutPixel(0, 0, {80, 255, 100, 127});
    EXPECT_EQ(test::Packed(picture->GetPixel(0, 0)),
              SDL_MapRGBA(surface->format, 168, 135, 82, 255));
  }
}

// The colours, 0 to 255, and the alpha, 0 to 1.
std::array<double, 4> ExactPixel(const IPixel& picture, int x, int y) {
  const SDL_Surface& surface = *SurfaceOf(picture);
  const std::uint32_t pixel = sdl::ReadPixel(surface, x, y);
  std::uint8_t c[4];
  SDL_GetRGBA(pixel, surface.format, &c[0], &c[1], &c[2], &c[3]);
  const bool isKey = (surface.flags & SDL_SRCCOLORKEY) != 0 && pixel == surface.format->colorkey;
  return {c[0] * 1.0, c[1] * 1.0, c[2] * 1.0, isKey ? 0 : c[3] / 255.0};
}

TEST_F(Picture, DrawingIsCloseToTheExactBlend) {
  struct SCase {
    const char* name;
    SPixelFormat source = kAlpha;
    SPixelFormat target = kAlpha;
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
    const ImagePtr source = NewNoise(c.size, c.source, 1);
    if (c.source.alphaMask == 0) {
      SDL_Rect left{0, 0, 15, 30};
      SDL_FillRect(SurfaceOf(*source), &left, SDL_MapRGB(SurfaceOf(*source)->format, 255, 0, 255));
      sdl::SetColorKey(SurfaceOf(*source), {255, 0, 255});
    }
    const ImagePtr before = NewNoise(c.size, c.target, 2);
    const ImagePtr target = NewNoise(c.size, c.target, 2);
    target->SetParam(IPixel::kAlphaBlit, c.target.alphaMask != 0);
    source->Blit(target.get(), {3, 2, c.size, c.size}, {1, 1, 0, 0});
    const int side = c.size - 3;
    for (int i = 0; i < side * side; ++i) {
      const auto above = ExactPixel(*source, 3 + i % side, 2 + i / side);
      const auto below = ExactPixel(*before, 1 + i % side, 1 + i / side);
      const auto result = ExactPixel(*target, 1 + i % side, 1 + i / side);
      const double a = above[3];
      const double b = below[3] * (1 - a);
      const double slack = a > 0 && a < 1 && b > 0 ? c.slack : c.slack - 0.99;
      ASSERT_NEAR(result[3] * 255, (a + b) * 255, 0.51) << i;
      for (int k = 0; a + b > 0 && k < 3; ++k) {
        ASSERT_NEAR(result[k], (above[k] * a + below[k] * b) / (a + b), slack) << i;
      }
    }
  }
}

// The colours in the middle of the four quarters, row by row: r, g, b, "." for transparent.
std::string Quarters(const ImagePtr& picture) {
  std::string letters;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const CColor color = picture->GetPixel(picture->GetWidth() * (1 + quarter % 2 * 2) / 4,
                                           picture->GetHeight() * (1 + quarter / 2 * 2) / 4);
    letters += color.a == 0 ? '.' : color.r > 99 ? 'r' : color.g > 99 ? 'g' : 'b';
  }
  return letters;
}

// A white sheet with a part of four quarters, the last of which is transparent by its alpha or by
// the colour key.
TEST_F(Picture, PicturesAreMadeOfAPartOfASheet) {
  const Rect part{10, 6, 20, 20};
  for (const bool isKeyed : {false, true}) {
    SCOPED_TRACE(isKeyed);
    const std::uint32_t quarters[] = {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, isKeyed ? kKey : 0};
    const ImagePtr sheet = Filled(NewSheet(40, 30, isKeyed), [&](int x, int y) {
      const int quarter = (y - part.y) / 10 * 2 + (x - part.x) / 10;
      return part.Contains(x, y) ? quarters[quarter] : 0xFFFFFFFF;
    });
    sheet->SetRect(part);
    EXPECT_TRUE(sheet->IsRectChanged());
    EXPECT_EQ(Quarters(ImagePtr(sheet->Clone())), "rgb.");
    EXPECT_EQ(ImagePtr(sheet->Clone())->GetRect(), part);
    EXPECT_EQ(Quarters(ImagePtr(sheet->Scale(60, 10))), "rgb.");
    EXPECT_EQ(Quarters(ImagePtr(sheet->Rotate(90))), "g.rb") << "counter-clockwise";
    const ImagePtr faded(sheet->CloneWithAlpha(128));
    EXPECT_EQ(Quarters(faded), "rgb.");
    EXPECT_EQ(ImagePtr(faded->CloneWithAlpha(100))->GetPixel(19, 0).a, 50);
    sheet->SaveToFile("part.tga");
    EXPECT_EQ(Quarters(ImagePtr(Gfx::LoadImage("part.tga", Gfx::kMagenta))), "rgb.");
    sheet->SetRect({20, 16, 40, 28});  // ends beyond the sheet
    sheet->PutPixel(0, 0, {255, 255, 255});
    const ImagePtr beyond(sheet->Scale(80, 56));
    EXPECT_EQ(beyond->GetPixel(1, 1).r, 255) << "not the copy from before";
    EXPECT_EQ(beyond->GetPixel(40, 0).r, 0);
  }
}

// A half-transparent grey square in a transparent frame, or an opaque one in a frame of the key
// colour: what smoothing mixes in at the rim must be neither black nor magenta.
TEST_F(Picture, SmoothedPicturesHaveCleanRims) {
  for (int kind = 0; kind < 8; ++kind) {
    SCOPED_TRACE(kind);
    const bool isSmooth = kind % 2 != 0;
    const bool isKeyed = kind >= 4;
    const ImagePtr picture = Filled(NewSheet(20, 20, isKeyed), [=](int x, int y) {
      return Rect{4, 4, 12, 12}.Contains(x, y) ? 0x80808080 : isKeyed ? kKey : 0;
    });
    picture->SetParam(IPixel::kScaleSmoothing, isSmooth);
    picture->SetParam(IPixel::kRotateSmoothing, kind % 2);
    const ImagePtr made(kind / 2 % 2 == 0 ? picture->Rotate(30) : picture->Scale(33, 47));
    EXPECT_NEAR(made->GetPixel(16, 16).a, isKeyed ? 255 : 128, 1);
    bool hasSoftRim = false;
    for (const std::uint32_t pixel : PixelsOf(*made)) {
      const std::uint32_t alpha = pixel >> 24;
      const auto [least, most] = std::minmax({pixel & 0xFF, pixel >> 8 & 0xFF, pixel >> 16 & 0xFF});
      hasSoftRim = hasSoftRim || (alpha > 16 && alpha < 100);
      ASSERT_GE(least, alpha > 16 ? 112U : 0U) << std::hex << pixel;
      ASSERT_LE(most, alpha > 16 ? 144U : 255U) << std::hex << pixel;
    }
    EXPECT_EQ(hasSoftRim, isSmooth);
  }
  Gfx::ScaleSmoothing() = 0;
}

}  // namespace
}  // namespace vask::test
