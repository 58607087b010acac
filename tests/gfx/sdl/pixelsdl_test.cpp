// Pictures over SDL: whose surface they share, their pixels, drawing one onto another (compared
// with the blend computed pixel by pixel in floating point), and pictures made from a part of a
// sheet.

#include "gfx/sdl/pixelsdl.h"

#include "gfx/sdl/pixelrow.h"
#include "gfx/sdl/sdltextures.h"
#include "support/testpicture.h"
#include "support/waves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
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
constexpr Rect kWhole{0, 0, 999, 999};

IPixel* PictureOf(int width, int height, const SPixelFormat& format) {
  return new CPixelSDL(sdl::NewSurface(width, height, format).release());
}
// Random pixels; a quarter of them transparent or of the key colour, a quarter opaque.
ImagePtr NewNoise(int size, const SPixelFormat& format, unsigned seed, bool isKeyed = false) {
  std::mt19937 random(seed);
  ImagePtr noise(PictureOf(size, size, format));
  SDL_Surface* const surface = SurfaceOf(*noise);
  const std::uint32_t bits = format.redMask | format.greenMask | format.blueMask | format.alphaMask;
  const std::uint32_t key = SDL_MapRGB(surface->format, 255, 0, 255);
  if (isKeyed) {
    sdl::SetColorKey(surface, CColor(Gfx::kMagenta));
  }
  return Filled(noise.release(), [&](int, int) {
    const std::uint32_t pixel = static_cast<std::uint32_t>(random()) & bits;
    const std::uint32_t clear = isKeyed ? key : pixel & ~format.alphaMask;
    const std::array kinds{clear, pixel | format.alphaMask, pixel, pixel};
    return kinds[random() % 4];
  });
}

// Red, green, blue and alpha at a place of the surface, as SDL reads them; all 0 for what is
// transparent or beyond the surface.
using Color = std::array<int, 4>;
Color ColorAt(const IPixel& picture, int x, int y) {
  const SDL_Surface& surface = *SurfaceOf(picture);
  if (!sdl::Bounds(surface).Contains(x, y)) {
    return {};
  }
  const std::uint32_t pixel = sdl::ReadPixel(surface, x, y);
  const bool isKey = (surface.flags & SDL_SRCCOLORKEY) != 0 && pixel == surface.format->colorkey;
  std::uint8_t c[4];
  SDL_GetRGBA(pixel, surface.format, &c[0], &c[1], &c[2], &c[3]);
  return isKey || c[3] == 0 ? Color{} : Color{c[0], c[1], c[2], c[3]};
}

struct Picture : testing::Test {
  CTestScreen myScreen{64, 48};
};

TEST_F(Picture, OneFileIsOneSurfaceUntilItsLastPictureDies) {
  ImagePtr(NewPicture(10, 20, {17, 34, 51}))->SaveToFile("door.bmp");

  const Gfx::ImagePtr picture(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
  picture->Blit(Gfx::GetScreen(), {0, 0, 10, 20}, {5, 5, 10, 20});

  EXPECT_EQ(ScreenColor(14, 24), 0x112233U);
  EXPECT_EQ(ScreenColor(15, 24), 0U);
  ImagePtr second(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
  ImagePtr third(Gfx::NewBuffer(second.get()));
  CSDLTextures& textures = CSDLTextures::GetSingleton();
  EXPECT_EQ(SurfaceOf(*third), SurfaceOf(*picture));
  EXPECT_EQ(textures.GetCount("door.bmp"), 3);
  second.reset();
  EXPECT_EQ(textures.GetCount(third->GetFileName()), 2);
  EXPECT_EQ(Gfx::NewBuffer(Gfx::NullImage()), Gfx::NullImage());
}

// All formats keep the colour exactly.
TEST_F(Picture, PixelsAreWrittenAndReadInEveryFormatInsideTheImageRectangle) {
  for (const SPixelFormat& format : {k16Bits, k24Bits, kRedLow, kLowAlpha}) {
    SCOPED_TRACE(testing::Message() << format.bits << " bits, alpha " << format.alphaMask);
    const ImagePtr picture(PictureOf(6, 5, format));
    const std::uint32_t pixel = SDL_MapRGBA(SurfaceOf(*picture)->format, 255, 16, 66, 255);
    const std::uint32_t half = SDL_MapRGBA(SurfaceOf(*picture)->format, 168, 135, 82, 255);
    const Rect part{1, 2, 4, 3};
    picture->SetRect(part);
    for (int i = 0; i < 6 * 5; ++i) {
      const bool isInside = part.Contains(i % 6, i / 6);
      const int x = i % 6 - part.x;
      const int y = i / 6 - part.y;
      picture->PutPixel(x, y, {255, 16, 66});
      picture->PutPixel(x, y, {80, 255, 100, 0});  // changes nothing
      EXPECT_EQ(sdl::ReadPixel(*SurfaceOf(*picture), i % 6, i / 6), isInside ? pixel : 0) << i;
      EXPECT_EQ(Packed(picture->GetPixel(x, y)), isInside ? pixel : Packed(CColor())) << i;
      EXPECT_EQ(picture->GetPixel(x, y).a, 255);
    }
    picture->PutPixel(0, 0, {80, 255, 100, 127});
    EXPECT_EQ(Packed(picture->GetPixel(0, 0)), half);
  }
}

TEST_F(Picture, GifFilesAreReadUnlessTheirFirstPictureIsTooLarge) {
  // A comma begins a picture, but none does in the palette and in the comment.
  const std::string size = Bytes(1, 2) + Bytes(1, 2), palette = "A,BCDE", end = Bytes(0, 1);
  const std::string comment = "!\xFE\x01," + end, pixel = "\x02\x02\x44\x01" + end;
  const std::string start = "GIF89a" + size + Bytes(0x80, 3) + palette + comment;
  for (const unsigned width : {1U, 0xFFFFU}) {
    const std::string box = Bytes(0, 2) + Bytes(0, 2) + Bytes(width, 2) + Bytes(1, 2);
    WriteFile("a.gif", start + "," + box + Bytes(0, 1) + pixel + ";");
    EXPECT_EQ(ImagePtr(Gfx::LoadImage("a.gif", 0))->GetWidth(), width == 1 ? 1 : 0);
  }
  EXPECT_EQ(ImagePtr(Gfx::NewBuffer(sdl::kMaxSide, 1))->GetWidth(), sdl::kMaxSide);
  EXPECT_EQ(ImagePtr(Gfx::NewBuffer(1, sdl::kMaxSide + 1))->GetWidth(), 0);
}

// Expects the exact blend of what the function finds for each place and what was there before.
template <typename Find>
void ExpectBlend(const IPixel& result, const IPixel* before, double slack, Find above) {
  for (int i = 0; i < result.GetSurfaceWidth() * result.GetSurfaceHeight(); ++i) {
    const int x = i % result.GetSurfaceWidth();
    const int y = i / result.GetSurfaceWidth();
    const Color over = above(x, y);
    const Color under = before != nullptr ? ColorAt(*before, x, y) : Color{};
    const Color color = ColorAt(result, x, y);
    const double a = over[3] / 255.0;
    const double b = under[3] / 255.0 * (1 - a);
    ASSERT_NEAR(color[3], (a + b) * 255, 0.51) << x << "," << y;
    for (int k = 0; a + b > 0 && k < 3; ++k) {
      const double most = a > 0 && a < 1 && b > 0 ? slack : slack - 0.99;  // a bare copy is exact
      ASSERT_NEAR(color[k], (over[k] * a + under[k] * b) / (a + b), most) << x << "," << y;
    }
  }
}

struct SDrawing {
  const char* name;
  SPixelFormat source = kAlpha;
  SPixelFormat target = kAlpha;
  double slack = 1;  // of a colour
  int size = 30;
  Rect part = kWhole;  // that both pictures show
  Rect from = {3, 2, 999, 999};
  Rect at = {1, 1, 0, 0};
};
constexpr SDrawing kDrawings[] = {
    {.name = "usual", .size = 257},
    {.name = "parts", .part = {2, 1, 20, 22}, .at = {-2, -3, 0, 0}},
    {.name = "cut at the left", .from = {-3, 4, 9, 8}, .at = {-2, 25, 0, 0}},
    {.name = "keyed", .source = kOpaque},
    {.name = "16 bits", .source = k16Bits, .target = kLowAlpha, .slack = 8},
    {.name = "onto the screen", .target = kOpaque, .slack = 2},
    {.name = "other order onto the screen", .source = kRedLow, .target = kOpaque, .slack = 2},
    {.name = "low alpha", .source = kLowAlpha},
    {.name = "onto low alpha", .target = kLowAlpha},
    {.name = "as it is", .source = k24Bits, .target = k24Bits},
};

TEST_F(Picture, DrawingIsCloseToTheExactBlend) {
  for (const SDrawing& c : kDrawings) {
    SCOPED_TRACE(c.name);
    const ImagePtr source = NewNoise(c.size, c.source, 1, c.source.alphaMask == 0);
    const ImagePtr before = NewNoise(c.size, c.target, 2);
    const ImagePtr target = NewNoise(c.size, c.target, 2);
    target->SetParam(IPixel::kAlphaBlit, c.target.alphaMask != 0);
    source->SetRect(c.part);
    target->SetRect(c.part);
    source->Blit(target.get(), c.from, c.at);
    ExpectBlend(*target, before.get(), c.slack, [&](int x, int y) {
      const int u = x - c.at.x + c.from.x;  // drawn there from here, within the parts
      const int v = y - c.at.y + c.from.y;
      const bool isDrawn = c.part.Contains(x, y) && c.part.Contains(u, v) &&
                           c.from.Contains(u - c.part.x, v - c.part.y);
      return isDrawn ? ColorAt(*source, u, v) : Color{};
    });
  }
}

TEST(PixelRow, PremultipliesToTheNearestAndBack) {
  for (std::uint32_t i = 0; i < 256 * 256; ++i) {
    const std::uint32_t color = i % 256;
    const std::uint32_t alpha = i / 256;
    std::uint32_t pixels[] = {alpha << 24 | color << 16, alpha << 24 | color << 8};
    sdl::PremultiplyRow(&pixels[0], 1);
    sdl::UnpremultiplyRow(&pixels[1], 1);
    ASSERT_EQ(pixels[0] >> 24, pixels[1] >> 24);
    ASSERT_NEAR(pixels[0] >> 16 & 0xFF, color * alpha / 255.0, 0.501) << alpha;
    const double straight = alpha == 0 ? 0 : std::min(255.0, color * 255.0 / alpha);
    ASSERT_NEAR(pixels[1] >> 8 & 0xFF, straight, 0.501) << alpha;
  }
}

// Expects that a picture shows a sheet, stretched to its size or turned around its middle.
void ExpectShows(IPixel* made, const IPixel& sheet, double slack, int fade = 255, double turn = 0) {
  const ImagePtr owner(made);
  const Rect from = sheet.GetRect();
  const Rect to = made->GetRect();
  const double sine = std::sin(turn);
  const double cosine = std::cos(turn);
  const double shrinkX = turn == 0 ? 1.0 * from.w / to.w : 1;
  const double shrinkY = turn == 0 ? 1.0 * from.h / to.h : 1;
  ExpectBlend(*made, nullptr, slack, [&](int madeX, int madeY) {
    const double x = (madeX - to.x - to.w / 2.0) * shrinkX;
    const double y = (madeY - to.y - to.h / 2.0) * shrinkY;
    const int u = static_cast<int>(std::floor(from.w / 2.0 + cosine * x - sine * y + 1e-9));
    const int v = static_cast<int>(std::floor(from.h / 2.0 + sine * x + cosine * y + 1e-9));
    const bool isInside = Rect{0, 0, from.w, from.h}.Contains(u, v);
    Color color = isInside ? ColorAt(sheet, from.x + u, from.y + v) : Color{};
    color[3] = color[3] * fade / 255;
    return color;
  });
}

TEST_F(Picture, PicturesAreMadeOfAPartOfASheet) {
  struct SCase {
    const char* name;
    SPixelFormat format = kAlpha;
    Rect part = {3, 2, 6, 8};
    bool isKeyed = false;
    double slack = 1;  // of a colour
  };
  const SCase cases[] = {
      {.name = "alpha"},
      {.name = "all", .part = {0, 0, 12, 12}},
      {.name = "beyond", .part = {7, 6, 8, 10}},
      {.name = "low alpha", .format = kLowAlpha},
      {.name = "red low", .format = kRedLow},
      {.name = "keyed", .format = kOpaque, .isKeyed = true},
      {.name = "24 bits", .format = k24Bits, .isKeyed = true},
      {.name = "16 bits", .format = k16Bits, .slack = 8},
  };
  for (const SCase& c : cases) {
    SCOPED_TRACE(c.name);
    const ImagePtr sheet = NewNoise(12, c.format, 1, c.isKeyed);
    sheet->SetRect(c.part);
    sheet->SetParam(IPixel::kRotateSmoothing, 0);
    EXPECT_EQ(ImagePtr(sheet->Clone())->GetRect(), c.part);
    ExpectShows(sheet->Clone(), *sheet, c.slack);
    ExpectShows(sheet->CloneWithAlpha(100), *sheet, c.slack, 100);
    ExpectShows(sheet->Scale(4 * c.part.w, c.part.h / 2), *sheet, c.slack);
    sheet->PutPixel(1, 1, {255, 255, 255});  // from here on nothing is made of an old copy
    ExpectShows(sheet->Rotate(25), *sheet, c.slack, 255, 25 * std::acos(-1) / 180);
    sheet->ClearRect({2, 0, 1, 3});
    EXPECT_TRUE(sheet->SaveToFile("part.tga"));
    EXPECT_EQ(FileText("part.tga").at(2), 2) << "true colour";
    ExpectShows(Gfx::LoadImage("part.tga", Gfx::kMagenta), *sheet, c.slack);
  }
  const ImagePtr clone(ImagePtr(Gfx::NewBuffer(2, 2))->Clone());
  ImagePtr(NewPicture(2, 2, {17, 34, 51}))->BlitTo(clone.get());
  EXPECT_EQ(clone->GetPixel(0, 0).a, 255) << "alpha is drawn onto a clone, too";
}

TEST_F(Picture, SolidPartIsThatOfWhatThePictureShows) {
  const ImagePtr picture(NewPicture(20, 10, CColor(0, 0, 0, 0)));
  picture->PutPixel(3, 6, CColor(9, 9, 9));
  picture->PutPixel(1, 5, CColor(9, 9, 9));
  picture->SetRect({2, 1, 10, 9});
  EXPECT_EQ(Gfx::SolidPart(*picture), (Rect{1, 5, 1, 1}));
}

// Expects nothing at the rim of a grey picture that is lighter or darker than it.
void ExpectCleanRim(const IPixel& made, bool isSoft) {
  bool hasSoftRim = false;
  for (const std::uint32_t pixel : PixelsOf(made)) {
    const std::uint32_t alpha = pixel >> 24;
    const auto [least, most] = std::minmax({pixel & 0xFF, pixel >> 8 & 0xFF, pixel >> 16 & 0xFF});
    hasSoftRim = hasSoftRim || (alpha > 16 && alpha < 100);
    ASSERT_GE(least, alpha > 16 ? 112U : 0U) << std::hex << pixel;
    ASSERT_LE(most, alpha > 16 ? 144U : 255U) << std::hex << pixel;
  }
  EXPECT_EQ(hasSoftRim, isSoft);
}

// A half-transparent grey square in a transparent white frame, or an opaque one in a frame of the
// key colour: what smoothing mixes in at the rim must be neither white, black nor magenta.
TEST_F(Picture, SmoothedPicturesHaveCleanRims) {
  for (const bool isKeyed : {false, true}) {
    IPixel* const sheet =
        isKeyed ? Gfx::NewScreenBuffer(20, 20, Gfx::kMagenta) : Gfx::NewBuffer(20, 20);
    const std::uint32_t frame = isKeyed ? kKey : 0xFFFFFF;
    const ImagePtr picture = Filled(sheet, [=](int x, int y) {
      return Rect{4, 4, 12, 12}.Contains(x, y) ? 0x80808080 : frame;
    });
    for (const bool isSmooth : {false, true}) {
      picture->SetParam(IPixel::kScaleSmoothing, isSmooth);
      picture->SetParam(IPixel::kRotateSmoothing, isSmooth);
      for (IPixel* const result : {picture->Rotate(30), picture->Scale(33, 47)}) {
        SCOPED_TRACE(testing::Message() << "keyed " << isKeyed << ", smooth " << isSmooth);
        const ImagePtr made(result);
        EXPECT_NEAR(made->GetPixel(16, 16).a, isKeyed ? 255 : 128, 1);
        ExpectCleanRim(*made, isSmooth);
      }
    }
  }
}

}  // namespace
}  // namespace vask::test
