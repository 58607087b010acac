#include "gfx/sdl/sdltextures.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

#include <climits>
#include <fstream>
#include <random>

namespace vask::test {
namespace {

using Gfx::ImagePtr;
using Rect = CRect<int>;

// Of a 32-bit picture.
std::uint32_t& PixelOf(const ImagePtr& image, int x, int y = 0) {
  return sdl::Row32(*SurfaceOf(*image), y)[x];
}
// The picture with each pixel made from its number.
template <typename Make>
ImagePtr Filled(IPixel* picture, Make make) {
  ImagePtr image(picture);
  const int width = image->GetWidth();
  for (int i = 0; i < width * image->GetHeight(); ++i) {
    PixelOf(image, i % width, i / width) = make(i);
  }
  return image;
}

class CPictureTest : public testing::Test {
 protected:
  // A buffer whose pixels tell their position.
  static ImagePtr NewChart(int width, int height) {
    return Filled(Gfx::NewBuffer(width, height),
                  [](int i) { return 0xFF000001U + static_cast<unsigned>(i); });
  }
  // Random pixels, with many of the alphas that are treated apart.
  static ImagePtr NewNoise(int width, int height, bool hasAlpha, int seed) {
    const sdl::SPixelFormat format{32, 0xFF0000, 0xFF00, 0xFF, hasAlpha ? 0xFF000000 : 0};
    std::mt19937 random(static_cast<unsigned>(seed));
    return Filled(new CPixelSDL(sdl::NewSurface(width, height, format).release()), [&](int) {
      const std::uint32_t pixel = static_cast<std::uint32_t>(random()), kind = random() % 4;
      return kind == 0 ? pixel & 0xFFFFFF : kind == 1 ? pixel | 0xFF000000 : pixel;
    });
  }

  CTestScreen myScreen{64, 48};
};

TEST_F(CPictureTest, OneFileIsOneSurfaceUntilItsLastPictureDies) {
  ImagePtr(NewPicture(1, 1, {17, 34, 51}))->SaveToFile("shared.bmp");
  std::vector<ImagePtr> pictures;
  pictures.emplace_back(Gfx::LoadImage("shared.bmp", Gfx::kMagenta));
  pictures.emplace_back(Gfx::LoadImage("shared.bmp", Gfx::kMagenta));
  pictures.emplace_back(Gfx::NewBuffer(pictures[0].get()));
  for (int count = 3; count > 0; --count) {
    EXPECT_EQ(CSDLTextures::GetSingletonPtr()->GetCount("shared.bmp"), count);
    EXPECT_EQ(SurfaceOf(*pictures.front()), SurfaceOf(*pictures.back()));
    EXPECT_EQ(pictures.back()->GetPixel(0, 0).r, 17);
    pictures.erase(pictures.begin());
  }
  EXPECT_FALSE(CSDLTextures::GetSingletonPtr()->Exists("shared.bmp"));
}

TEST_F(CPictureTest, TheKeyColourIsTransparentWithoutVideoToo) {
  const ImagePtr drawn(NewPicture(2, 1, {255, 0, 255}));
  drawn->PutPixel(1, 0, {0, 255, 0});
  drawn->SaveToFile("keyed.bmp");
  for (const bool hasVideo : {true, false}) {
    hasVideo ? void() : SDL_Quit();
    const ImagePtr image(Gfx::LoadImage("keyed.bmp", Gfx::kMagenta));
    const ImagePtr clone(image->Clone());
    const ImagePtr faded(image->CloneWithAlpha(255));
    for (const IPixel* picture : {image.get(), clone.get(), faded.get()}) {
      const ImagePtr target(Gfx::NewScreenBuffer(2, 1, Gfx::kMagenta));
      PixelOf(target, 0) = 0x123456;
      EXPECT_TRUE(picture->BlitTo(target.get()));
      EXPECT_EQ(PixelsOf(*target), (std::vector<std::uint32_t>{0x123456, 0x00FF00}));
    }
  }
  EXPECT_EQ(sdl::OpenVideoMode(32, 32, 32, 0), nullptr);
}

// Random rectangles, many of them partly or wholly outside, between two pictures that show only a
// part of their surfaces.
TEST_F(CPictureTest, BlitsAreCutOnAllSides) {
  const ImagePtr source = NewChart(9, 7);
  source->SetRect({2, 1, 60, 5});
  std::mt19937 random(3);
  const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  for (int round = 0; round < 2000; ++round) {
    const ImagePtr target(Gfx::NewBuffer(8, 8));
    target->SetRect({1, 2, 6, 5});
    const int width = round % 50 == 0 ? INT_MAX : below(12) - 2;
    const Rect from{below(13) - 4, below(13) - 4, width, below(12) - 2};
    const Rect to{below(19) - 9, below(19) - 9, 0, 0};
    round % 2 == 0 ? void(source->Blit(target.get(), from, to))
                   : Gfx::CopyPixels(source.get(), from, target.get(), to.x, to.y);
    for (int i = 0; i < 8 * 8; ++i) {
      const int x = i % 8 - 1 - to.x + from.x;
      const int y = i / 8 - 2 - to.y + from.y;
      const bool isDrawn = Rect{1, 2, 6, 5}.Contains(i % 8, i / 8) && from.Contains(x, y) &&
                           Rect{0, 0, 7, 5}.Contains(x, y);
      ASSERT_EQ(PixelOf(target, i % 8, i / 8), isDrawn ? PixelOf(source, 2 + x, 1 + y) : 0)
          << "round " << round << " at " << i;
    }
  }
}

TEST_F(CPictureTest, BuffersAreOfOneTo8192) {
  // clang-format off
  const std::tuple<int, int, bool> cases[] = {
      {1, 1, true}, {8192, 1, true}, {1, 8192, true}, {8193, 1, false}, {1, 8193, false},
      {0, 5, false}, {5, 0, false}, {-1, 5, false}, {INT_MAX, INT_MAX, false}};
  // clang-format on
  const ImagePtr picture = NewChart(2, 2);
  for (const auto& [width, height, isMade] : cases) {
    for (IPixel* made : {Gfx::NewBuffer(width, height), picture->Scale(width, height),
                         Gfx::NewScreenBuffer(width, height, Gfx::kMagenta)}) {
      EXPECT_EQ(ImagePtr(made)->GetWidth(), isMade ? width : 0) << width << " x " << height;
    }
  }
  EXPECT_TRUE(ImagePtr(ImagePtr(Gfx::NewBuffer(8192, 100))->Rotate(1))->IsEmpty());
}

// A half-transparent grey square in a transparent frame, and an opaque one whose frame is the key
// colour: what smoothing mixes in at the rim must be neither black nor magenta.
TEST_F(CPictureTest, TurnedAndSmoothedPicturesHaveCleanRims) {
  for (int kind = 0; kind < 8; ++kind) {
    Gfx::ScaleSmoothing() = Gfx::RotateSmoothing() = kind % 2;
    const bool isKeyed = kind >= 4;
    const auto pixelAt = [=](int i) {
      const bool isInside = Rect{4, 4, 12, 12}.Contains(i % 20, i / 20);
      return isInside ? 0x80808080 : isKeyed ? 0xFF00FF : 0;
    };
    const ImagePtr picture = Filled(
        isKeyed ? Gfx::NewScreenBuffer(20, 20, Gfx::kMagenta) : Gfx::NewBuffer(20, 20), pixelAt);
    const ImagePtr made(kind % 4 < 2 ? picture->Rotate(30) : picture->Scale(33, 47));
    EXPECT_EQ(PixelOf(made, 0) >> 24, 0U);
    EXPECT_NEAR(made->GetPixel(16, 16).a, isKeyed ? 255 : 128, 1) << kind;
    for (const std::uint32_t pixel : PixelsOf(*made)) {
      const auto [least, most] = std::minmax({pixel & 0xFF, pixel >> 8 & 0xFF, pixel >> 16 & 0xFF});
      ASSERT_TRUE(pixel >> 24 <= 16 || (least >= 112 && most <= 144)) << kind << std::hex << pixel;
    }
  }
  Gfx::ScaleSmoothing() = 0;
}

// How far two pixels are apart in the worst of their colours.
static int ColorDistance(std::uint32_t one, std::uint32_t other) {
  int worst = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const auto channel = [=](std::uint32_t p) { return static_cast<int>(p >> shift & 0xFF); };
    worst = std::max(worst, std::abs(channel(one) - channel(other)));
  }
  return worst;
}

// Widths around the four pixels of a step, at every alignment, between all kinds of surfaces. The
// compatibility library rounds in its own way; the classic one's pixels are ours to the bit.
TEST_F(CPictureTest, PlainBlitsGiveSdlsPixels) {
  const bool isClassic = SDL_Linked_Version()->patch < 50;
  for (int i = 0; i < 19 * 4; ++i) {
    const int width = 1 + i / 4;
    const ImagePtr source = NewNoise(width + 3, 5, i % 2 == 0, width);
    const ImagePtr ours = NewNoise(24, 8, i % 4 < 2, 99);
    const ImagePtr sdls = NewNoise(24, 8, i % 4 < 2, 99);
    source->Blit(ours.get(), {width % 4, 1, width, 3}, {2, 4, 0, 0});
    SDL_Rect from{static_cast<Sint16>(width % 4), 1, static_cast<Uint16>(width), 3};
    SDL_Rect to{2, 4, 0, 0};
    SDL_UpperBlit(SurfaceOf(*source), &from, SurfaceOf(*sdls), &to);
    const auto ourPixels = PixelsOf(*ours), sdlPixels = PixelsOf(*sdls);
    if (isClassic) {
      ASSERT_EQ(ourPixels, sdlPixels) << "width " << width << ", kind " << i % 4;
    }
    for (std::size_t p = 0; p < ourPixels.size(); ++p) {
      ASSERT_LE(ColorDistance(ourPixels[p], sdlPixels[p]), 2) << "width " << width << ", at " << p;
    }
  }
}

TEST_F(CPictureTest, OverBlitIsWithinOneOfTheExactBlend) {
  const ImagePtr source = NewNoise(257, 257, true, 1);
  const ImagePtr target = NewNoise(257, 257, true, 2);
  target->SetParam(IPixel::kAlphaBlit, true);
  const auto above = PixelsOf(*source), below = PixelsOf(*target);
  source->BlitTo(target.get());
  const auto results = PixelsOf(*target);
  for (std::size_t i = 0; i < results.size(); ++i) {
    const double a = (above[i] >> 24) / 255.0;
    const double b = (below[i] >> 24) / 255.0 * (1 - a);
    const double slack = a > 0 && a < 1 && b > 0 ? 1 : 1e-9;
    ASSERT_NEAR(results[i] >> 24, (a + b) * 255, slack) << std::hex << above[i] << " " << below[i];
    for (int shift = 0; a + b > 0 && shift < 24; shift += 8) {
      const auto channel = [=](std::uint32_t pixel) { return pixel >> shift & 0xFF; };
      const double exact = (channel(above[i]) * a + channel(below[i]) * b) / (a + b);
      ASSERT_NEAR(channel(results[i]), exact, slack) << std::hex << above[i] << " " << below[i];
    }
  }
}

// Two pixels, one below the other: red and magenta.
TEST_F(CPictureTest, TgaFilesOfBothDepths) {
  // clang-format off
  const std::tuple<int, std::uint32_t, std::string> cases[] = {  // depth, mask of the alpha; the bytes
      {24, 0, {"\0\0\2\0\0\0\0\0\0\0\0\0\1\0\2\0\x18\x20" "\0\0\xFF\xFF\0\xFF", 24}},
      {32, 0xFF000000, {"\0\0\2\0\0\0\0\0\0\0\0\0\1\0\2\0\x20\x28" "\0\0\xFF\x80\xFF\0\xFF\x20", 26}}};
  // clang-format on
  for (const auto& [depth, alpha, bytes] : cases) {
    auto* surface = SDL_CreateRGBSurface(0, 1, 2, depth, 0xFF0000, 0xFF00, 0xFF, alpha);
    const CPixelSDL picture(surface);
    sdl::WritePixel(*surface, 0, 0, 0xFF0000 | (0x80000000 & alpha));
    sdl::WritePixel(*surface, 0, 1, 0xFF00FF | (0x20000000 & alpha));
    EXPECT_TRUE(picture.SaveToFile("picture.tga"));
    std::ifstream file("picture.tga", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), bytes) << depth;
    EXPECT_FALSE(picture.SaveToFile("no/such/folder/picture.tga"));
  }
  EXPECT_EQ(ImagePtr(Gfx::LoadImage("picture.tga", 0))->GetPixel(0, 1).a, 0x20);
}

TEST_F(CPictureTest, TheScreenListsSomeRectanglesCutToItself) {
  CPixelScreenSDL& picture = myScreen.Picture();
  for (int i = 1; i <= 76; ++i) {
    picture.AddDirtyRect({i % 64, 0, 1, 1});
    EXPECT_EQ(picture.IsUpdateAll(), i == 76) << i;
  }
  picture.Flip();
  CPixelScreenSDL::FullFlip() = false;
  // SDL would write outside its memory for a rectangle that was not cut.
  for (const Rect& rect : {Rect{-9, -9, 5, 5}, {64, 0, 5, 5}, {-9, -9, 9999, 9999}}) {
    picture.AddDirtyRect(rect);
    EXPECT_EQ(picture.GetDirtyCount(), rect.w > 5 ? 1U : 0U);
  }
  picture.Flip();
  picture.AddDirtyRect({0, 0, 64, 48});
  EXPECT_TRUE(picture.IsUpdateAll()) << "the screen itself";
  CPixelScreenSDL::FullFlip() = true;
}

}  // namespace
}  // namespace vask::test
