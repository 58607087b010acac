// Pictures over SDL: whose surface they share, their pixels, and the pictures made from a part of a
// sheet.

#include "gfx/sdl/pixelsdl.h"

#include "gfx/sdl/sdltextures.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

using Gfx::ImagePtr;
using Rect = CRect<int>;

constexpr std::uint32_t kKey = 0xFF00FF;  // as a pixel

class Picture : public testing::Test {
 protected:
  CTestScreen myScreen{64, 48};
};

TEST_F(Picture, OneFileIsOneSurfaceUntilItsLastPictureDies) {
  ImagePtr(NewPicture(10, 20, {17, 34, 51}))->SaveToFile("door.bmp");
  std::vector<ImagePtr> pictures;
  pictures.emplace_back(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
  pictures.emplace_back(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
  pictures.emplace_back(Gfx::NewBuffer(pictures[0].get()));
  for (int count = 3; count > 0; --count) {
    EXPECT_EQ(CSDLTextures::GetSingletonPtr()->GetCount("door.bmp"), count);
    EXPECT_EQ(SurfaceOf(*pictures.front()), SurfaceOf(*pictures.back()));
    EXPECT_EQ(pictures.back()->GetFileName(), "door.bmp");
    pictures.erase(pictures.begin());
  }
  EXPECT_FALSE(CSDLTextures::GetSingletonPtr()->Exists("door.bmp"));

  const Gfx::ImagePtr picture(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
  picture->Blit(Gfx::GetScreen(), {0, 0, 10, 20}, {5, 5, 10, 20});

  EXPECT_EQ(myScreen.At(14, 24), 0x112233U);
  EXPECT_EQ(myScreen.At(15, 24), 0U);
}

TEST_F(Picture, BufferOfABufferIsACopy) {
  const ImagePtr original(NewPicture(2, 1, {10, 20, 30, 40}));
  const ImagePtr copy(Gfx::NewBuffer(original.get()));
  EXPECT_EQ(PixelsOf(*copy), PixelsOf(*original));
  original->BlitTo(copy.get());
  EXPECT_GT(copy->GetPixel(1, 0).a, 40) << "it blends alpha as the original does";
  EXPECT_EQ(original->GetPixel(1, 0).a, 40);
}

TEST_F(Picture, KeyColourIsTransparentWithoutVideoToo) {
  const ImagePtr drawn(NewPicture(2, 1, {255, 0, 255}));
  drawn->PutPixel(1, 0, {0, 255, 0});
  drawn->SaveToFile("keyed.bmp");
  for (const bool hasVideo : {true, false}) {
    if (!hasVideo) {
      SDL_Quit();
    }
    const ImagePtr image(Gfx::LoadImage("keyed.bmp", Gfx::kMagenta));
    const ImagePtr clone(image->Clone());
    for (const IPixel* picture : {image.get(), clone.get()}) {
      const ImagePtr target =
          Filled(Gfx::NewScreenBuffer(2, 1, Gfx::kMagenta), [](int, int) { return 0x123456U; });
      EXPECT_TRUE(picture->BlitTo(target.get()));
      EXPECT_EQ(PixelsOf(*target), (std::vector<std::uint32_t>{0x123456, 0x00FF00})) << hasVideo;
    }
  }
}

// SDL fills the pixel that proves reading; with that, reading proves writing. All formats keep the
// colour exactly.
TEST_F(Picture, PixelsAreWrittenAndReadInEveryFormatInsideTheImageRectangle) {
  const sdl::SPixelFormat formats[] = {
      {.bits = 16, .redMask = 0xF800, .greenMask = 0x7E0, .blueMask = 0x1F},
      {.bits = 24, .redMask = 0xFF0000, .greenMask = 0xFF00, .blueMask = 0xFF},
      {.bits = 32, .redMask = 0xFF, .greenMask = 0xFF00, .blueMask = 0xFF0000},
      {.bits = 32,
       .redMask = 0xFF00,
       .greenMask = 0xFF0000,
       .blueMask = ~0U << 24,
       .alphaMask = 255},
  };
  for (const sdl::SPixelFormat& format : formats) {
    SCOPED_TRACE(testing::Message() << format.bits << " bits, alpha " << format.alphaMask);
    CPixelSDL picture(sdl::NewSurface(6, 5, format).release());
    SDL_Surface* surface = picture.GetSurface();
    const std::uint32_t pixel = SDL_MapRGBA(surface->format, 255, 16, 66, 255);
    SDL_Rect filled{2, 3, 1, 1};
    SDL_FillRect(surface, &filled, pixel);
    EXPECT_EQ(picture.GetPixel(2, 3).Pack(), pixel);
    const Rect part{1, 2, 4, 3};
    picture.SetRect(part);
    for (int i = 0; i < 6 * 5; ++i) {
      const int x = i % 6 - part.x;
      const int y = i / 6 - part.y;
      const bool isInside = part.Contains(i % 6, i / 6);
      picture.PutPixel(x, y, {255, 16, 66});
      EXPECT_EQ(sdl::ReadPixel(*surface, i % 6, i / 6), isInside ? pixel : 0) << i;
      EXPECT_EQ(picture.GetPixel(x, y).Pack(), isInside ? pixel : CColor().Pack()) << i;
    }
    picture.PutPixel(0, 0, {80, 255, 100, 0});
    EXPECT_EQ(picture.GetPixel(0, 0).Pack(), pixel) << "alpha 0 changes nothing";
    picture.PutPixel(0, 0, {80, 255, 100, 127});
    EXPECT_EQ(picture.GetPixel(0, 0).Pack(), SDL_MapRGBA(surface->format, 168, 135, 82, 255));
  }
}

TEST_F(Picture, TransparentPixelsBlendAndClear) {
  const ImagePtr picture(NewPicture(3, 2, {80, 255, 100, 127}));
  EXPECT_EQ(PixelsOf(*picture)[0], 0x7F50FF64U);
  picture->SetRect({1, 0, 2, 2});
  picture->PutPixel(0, 0, {255, 16, 66, 127});
  picture->ClearRect({0, 1, 1, 9});
  const std::uint32_t same = 0x7F50FF64;
  EXPECT_EQ(PixelsOf(*picture),
            (std::vector<std::uint32_t>{same, 0xBEC4604E, same, same, 0, same}));
}

// The colours in the middle of the four quarters, row by row: r, g, b, "." for transparent.
std::string Quarters(const IPixel& picture) {
  std::string letters;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const CColor color = picture.GetPixel(picture.GetWidth() * (1 + quarter % 2 * 2) / 4,
                                          picture.GetHeight() * (1 + quarter / 2 * 2) / 4);
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
    const ImagePtr sheet =
        Filled(isKeyed ? Gfx::NewScreenBuffer(40, 30, Gfx::kMagenta) : Gfx::NewBuffer(40, 30),
               [&](int x, int y) {
                 const int quarter = (y - part.y) / 10 * 2 + (x - part.x) / 10;
                 return part.Contains(x, y) ? quarters[quarter] : 0xFFFFFFFF;
               });
    sheet->SetRect(part);
    EXPECT_EQ(Quarters(*ImagePtr(sheet->Clone())), "rgb.");
    EXPECT_EQ(ImagePtr(sheet->Clone())->GetRect(), part);
    EXPECT_EQ(Quarters(*ImagePtr(sheet->Scale(60, 10))), "rgb.");
    EXPECT_EQ(Quarters(*ImagePtr(sheet->Rotate(90))), "g.rb") << "counter-clockwise";
    const ImagePtr faded(sheet->CloneWithAlpha(128));
    EXPECT_EQ(Quarters(*faded), "rgb.");
    EXPECT_EQ(ImagePtr(faded->CloneWithAlpha(100))->GetPixel(19, 0).a, 50);
    sheet->SaveToFile("part.tga");
    EXPECT_EQ(Quarters(*ImagePtr(Gfx::LoadImage("part.tga", Gfx::kMagenta))), "rgb.");
    sheet->SetRect({20, 16, 40, 28});  // ends beyond the sheet
    EXPECT_EQ(ImagePtr(sheet->Scale(80, 56))->GetPixel(1, 1).r, 0);
    sheet->PutPixel(0, 0, {255, 255, 255});
    const ImagePtr beyond(sheet->Scale(80, 56));
    EXPECT_EQ(beyond->GetPixel(1, 1).r, 255) << "not the copy from before";
    EXPECT_EQ(beyond->GetPixel(39, 0).r, 255);
    EXPECT_EQ(beyond->GetPixel(40, 0).r, 0);
  }
}

TEST_F(Picture, SidesAreOneTo8192) {
  const ImagePtr picture(NewPicture(2, 2, {1, 2, 3}));
  for (const auto& [width, height] :
       {std::pair{1, 8192}, {8192, 1}, {1, 8193}, {8193, 1}, {0, 5}, {5, 0}, {99999, 99999}}) {
    const bool isMade = std::min(width, height) > 0 && std::max(width, height) <= 8192;
    for (IPixel* made : {Gfx::NewBuffer(width, height), picture->Scale(width, height),
                         Gfx::NewScreenBuffer(width, height, Gfx::kMagenta)}) {
      EXPECT_EQ(ImagePtr(made)->GetWidth(), isMade ? width : 0) << width << " x " << height;
    }
  }
  EXPECT_TRUE(ImagePtr(ImagePtr(Gfx::NewBuffer(8192, 100))->Rotate(1))->IsEmpty());
}

// A half-transparent grey square in a transparent frame, or an opaque one in a frame of the key
// colour: what smoothing mixes in at the rim must be neither black nor magenta.
TEST_F(Picture, SmoothedPicturesHaveCleanRims) {
  for (int kind = 0; kind < 8; ++kind) {
    const bool isSmooth = kind % 2 != 0;
    const bool isKeyed = kind >= 4;
    SCOPED_TRACE(kind);
    const ImagePtr picture =
        Filled(isKeyed ? Gfx::NewScreenBuffer(20, 20, Gfx::kMagenta) : Gfx::NewBuffer(20, 20),
               [=](int x, int y) {
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
