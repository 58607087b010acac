#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <memory>

#include "gfx/sdl/sdltextures.h"
#include "sdl_support.h"

namespace vask::test {

namespace {

class CPictureTest : public CSdlScreen {
 protected:
  // A buffer whose pixels tell their position.
  static Gfx::ImagePtr NewChart(int width, int height) {
    Gfx::ImagePtr chart(Gfx::NewBuffer(width, height));
    for (int i = 0; i < width * height; ++i) {
      PixelOf(SurfaceOf(chart), i % width, i / width) =
          0xFF000000U | static_cast<std::uint32_t>(i + 1);
    }
    return chart;
  }
};

}  // namespace

TEST_F(CPictureTest, OneFileIsOneSurfaceUntilItsLastPictureDies) {
  WriteBmp("shared.bmp", {0x112233});
  CSDLTextures& textures = *CSDLTextures::GetSingletonPtr();
  Gfx::ImagePtr first(Gfx::LoadImage("shared.bmp", Gfx::kMagenta));
  Gfx::ImagePtr second(Gfx::LoadImage("shared.bmp", Gfx::kMagenta));
  Gfx::ImagePtr third(Gfx::NewBuffer(first.get()));
  EXPECT_EQ(SurfaceOf(first), SurfaceOf(second));
  EXPECT_EQ(SurfaceOf(first), SurfaceOf(third));
  EXPECT_EQ(textures.GetCount("shared.bmp"), 3);
  first.reset();
  third.reset();
  EXPECT_EQ(second->GetPixel(0, 0).r, 0x11);
  second.reset();
  EXPECT_FALSE(textures.Exists("shared.bmp"));
}

TEST_F(CPictureTest, ABufferIsCopiedAndNotShared) {
  const Gfx::ImagePtr original = NewChart(2, 2);
  const Gfx::ImagePtr copy(Gfx::NewBuffer(original.get()));
  original->ClearRect({0, 0, 2, 2});
  EXPECT_EQ(PixelOf(SurfaceOf(copy), 1, 1), 0xFF000004U);
  EXPECT_TRUE(Gfx::ImagePtr(Gfx::NewBuffer(Gfx::NullImage()))->IsEmpty());
}

TEST_F(CPictureTest, TheKeyColourOfALoadedPictureIsTransparent) {
  WriteBmp("keyed.bmp", {0xFF00FF, 0x00FF00});
  const Gfx::ImagePtr image(Gfx::LoadImage("keyed.bmp", Gfx::kMagenta));
  const Gfx::ImagePtr clone(image->Clone());
  const Gfx::ImagePtr faded(image->CloneWithAlpha(255));
  for (const IPixel* picture : {image.get(), clone.get(), faded.get()}) {
    SDL_Surface* screen = SDL_GetVideoSurface();
    SDL_FillRect(screen, nullptr, 0x123456);
    const std::unique_ptr<CPixelSDL> target = std::make_unique<CPixelSDL>(screen);
    EXPECT_TRUE(picture->BlitTo(target.get()));
    EXPECT_EQ(PixelOf(screen, 0, 0), 0x123456U);
    EXPECT_EQ(PixelOf(screen, 1, 0), 0x00FF00U);
    target->SetSurface(nullptr, false);
  }
}

TEST_F(CPictureTest, APicturesOwnTransparentIndexSurvivesLoading) {
  const sdl::SurfacePtr indexed(SDL_CreateRGBSurface(0, 2, 1, 8, 0, 0, 0, 0));
  SDL_Color colors[] = {{10, 20, 30, 0}, {200, 0, 0, 0}};
  SDL_SetColors(indexed.get(), colors, 0, 2);
  SDL_SetColorKey(indexed.get(), SDL_SRCCOLORKEY, 0);
  sdl::WritePixel(*indexed, 1, 0, 1);
  CPixelSDL picture(
      sdl::SurfacePtr(SDL_ConvertSurface(indexed.get(), indexed->format, 0)).release());
  SDL_SetColorKey(picture.GetSurface(), SDL_SRCCOLORKEY, 0);
  ASSERT_TRUE(picture.SaveToFile("indexed.tga"));
  const Gfx::ImagePtr loaded(Gfx::LoadImage("indexed.tga", Gfx::kMagenta));
  EXPECT_EQ(loaded->GetPixel(0, 0).a, 0);
  EXPECT_EQ(loaded->GetPixel(1, 0).a, 255);
  EXPECT_EQ(loaded->GetPixel(1, 0).r, 200);
}

TEST_F(CPictureTest, PixelsLieInsideTheImageRectangleOnly) {
  const Gfx::ImagePtr image = NewChart(6, 5);
  image->SetRect({2, 1, 3, 2});
  struct {
    int x, y;
    bool isInside;
  } const cases[] = {{0, 0, true},   {2, 1, true},   {3, 0, false},       {0, 2, false},
                     {-1, 0, false}, {0, -1, false}, {INT_MAX, 0, false}, {0, INT_MIN, false}};
  for (const auto& c : cases) {
    const Gfx::ImagePtr before(image->Clone());
    const CColor read = image->GetPixel(c.x, c.y);
    if (c.isInside) {
      EXPECT_EQ(read.Pack(), PixelOf(SurfaceOf(image), 2 + c.x, 1 + c.y)) << c.x << " " << c.y;
    } else {
      EXPECT_EQ(read.Pack(), 0xFF000000U) << c.x << " " << c.y;
    }
    image->PutPixel(c.x, c.y, CColor(1, 2, 3));
    EXPECT_EQ(image->GetPixel(c.x, c.y).g == 2, c.isInside) << c.x << " " << c.y;
  }
  // A rectangle that leaves its surface gives access to the surface only.
  image->SetRect({5, 4, 100, 100});
  image->PutPixel(1, 0, CColor(9, 9, 9));
  image->ClearRect({-50, -50, 1000, 1000});
  EXPECT_EQ(PixelOf(SurfaceOf(image), 5, 4), 0U);
  EXPECT_NE(PixelOf(SurfaceOf(image), 4, 4), 0U);
}

TEST_F(CPictureTest, PutPixelBlends) {
  const Gfx::ImagePtr image(Gfx::NewBuffer(1, 1));
  struct {
    std::uint32_t before;
    std::uint8_t alpha;
    std::uint32_t after;
  } const cases[] = {
      {0xFF000000, 255, 0xFFC86400}, {0xFF000000, 0, 0xFF000000},  {0x00000000, 128, 0x80C86400},
      {0xFF000000, 51, 0xFF281400},  {0x80C86400, 51, 0x99C86400},
  };
  for (const auto& c : cases) {
    PixelOf(SurfaceOf(image), 0, 0) = c.before;
    image->PutPixel(0, 0, CColor(200, 100, 0, c.alpha));
    EXPECT_EQ(PixelOf(SurfaceOf(image), 0, 0), c.after) << int{c.alpha};
  }
}

TEST_F(CPictureTest, PixelsKeepTheLayoutOfEveryDepth) {
  for (const int depth : {8, 16, 24, 32}) {
    SDL_Quit();
    Open(depth);
    const Gfx::ImagePtr buffer(Gfx::NewScreenBuffer(3, 3, Gfx::kMagenta));
    ASSERT_EQ(SurfaceOf(buffer)->format->BitsPerPixel, depth);
    buffer->PutPixel(1, 1, CColor(255, 255, 255));
    const CColor read = buffer->GetPixel(1, 1);
    if (depth > 8) {
      EXPECT_EQ(read.Pack(), sdl::ReadPixel(*SurfaceOf(buffer), 1, 1)) << depth;
    }
    EXPECT_GE(read.r, depth == 16 ? 31 : 240) << depth;
    EXPECT_EQ(read.a, 255) << depth;
    EXPECT_EQ(buffer->GetPixel(0, 1).r, 0) << depth;
  }
}

// Random rectangles, many of them partly or wholly outside, between two pictures that show only a
// part of their surfaces.
TEST_F(CPictureTest, BlitsAreCutOnAllSides) {
  const Gfx::ImagePtr source = NewChart(9, 7);
  source->SetRect({2, 1, 6, 5});
  std::minstd_rand random(3);
  const auto number = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  for (int round = 0; round < 2000; ++round) {
    const Gfx::ImagePtr target(Gfx::NewBuffer(8, 8));
    target->SetRect({1, 2, 6, 5});
    CRect<int> from{number(-4, 8), number(-4, 8), number(-2, 9), number(-2, 9)};
    const CRect<int> to{number(-9, 9), number(-9, 9), 0, 0};
    from.w = round % 50 == 0 ? INT_MAX : from.w;
    if (round % 2 == 0) {
      source->Blit(target.get(), from, to);
    } else {
      Gfx::CopyExact(source.get(), from, target.get(), to.x, to.y);
    }
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) {
        const int sourceX = x - 1 - to.x + from.x;
        const int sourceY = y - 2 - to.y + from.y;
        const bool isDrawn = CRect<int>{1, 2, 6, 5}.Contains(x, y) && sourceX >= from.x &&
                             sourceX - from.x < from.w && from.Contains(from.x, sourceY) &&
                             sourceX >= 0 && sourceX < 6 && sourceY >= 0 && sourceY < 5;
        const std::uint32_t expected =
            isDrawn ? PixelOf(SurfaceOf(source), 2 + sourceX, 1 + sourceY) : 0;
        ASSERT_EQ(PixelOf(SurfaceOf(target), x, y), expected)
            << "round " << round << " at " << x << ", " << y;
      }
    }
  }
  EXPECT_FALSE(source->BlitTo(Gfx::NullImage()));
}

TEST_F(CPictureTest, FadedClonesMultiplyTheAlpha) {
  const Gfx::ImagePtr image(Gfx::NewBuffer(256, 1));
  for (int alpha = 0; alpha < 256; ++alpha) {
    PixelOf(SurfaceOf(image), alpha, 0) = static_cast<std::uint32_t>(alpha) << 24 | 0x336699;
  }
  PixelOf(SurfaceOf(image), 0, 0) = 0;
  for (const int fade : {0, 1, 127, 128, 254, 255}) {
    const Gfx::ImagePtr faded(image->CloneWithAlpha(fade));
    EXPECT_EQ(PixelOf(SurfaceOf(faded), 0, 0), 0U);
    for (int alpha = 1; alpha < 256; ++alpha) {
      const float share = static_cast<float>(alpha) / 255.0F * (static_cast<float>(fade) / 255.0F);
      ASSERT_EQ(PixelOf(SurfaceOf(faded), alpha, 0),
                static_cast<std::uint32_t>(share * 255) << 24 | 0x336699)
          << alpha << " faded to " << fade;
    }
  }
}

TEST_F(CPictureTest, ClonesKeepTheImageRectangle) {
  const Gfx::ImagePtr image = NewChart(5, 5);
  image->SetRect({1, 2, 3, 2});
  const Gfx::ImagePtr clone(image->Clone());
  EXPECT_EQ(clone->GetRect(), image->GetRect());
  EXPECT_EQ(PixelOf(SurfaceOf(clone), 3, 3), PixelOf(SurfaceOf(image), 3, 3));
  EXPECT_EQ(PixelOf(SurfaceOf(clone), 0, 0), 0U);
}

TEST_F(CPictureTest, ExactCopiesIgnoreKeyAndAlpha) {
  const Gfx::ImagePtr screenLike(Gfx::NewScreenBuffer(2, 1, Gfx::kMagenta));
  const Gfx::ImagePtr saved(Gfx::NewScreenBuffer(2, 1, Gfx::kMagenta));
  screenLike->PutPixel(0, 0, CColor(255, 0, 255));
  saved->PutPixel(0, 0, CColor(9, 9, 9));
  Gfx::CopyExact(screenLike.get(), {0, 0, 2, 1}, saved.get(), 0, 0);
  EXPECT_EQ(saved->GetPixel(0, 0).b, 255);

  const Gfx::ImagePtr faint(Gfx::NewBuffer(2, 1));
  PixelOf(SurfaceOf(faint), 0, 0) = 0x10ABCDEF;
  const std::uint32_t flags = SurfaceOf(faint)->flags;
  Gfx::CopyExact(faint.get(), {0, 0, 2, 1}, saved.get(), 0, 0);
  EXPECT_EQ(saved->GetPixel(0, 0).r, 0xAB);
  EXPECT_EQ(SurfaceOf(faint)->flags, flags);
}

TEST_F(CPictureTest, BuffersAreOfOneTo8192) {
  struct {
    int width, height;
    bool isMade;
  } const cases[] = {{1, 1, true},     {8192, 1, true},  {1, 8192, true},
                     {8193, 1, false}, {1, 8193, false}, {0, 5, false},
                     {5, 0, false},    {-1, 5, false},   {INT_MAX, INT_MAX, false}};
  const Gfx::ImagePtr picture = NewChart(2, 2);
  for (const auto& c : cases) {
    const Gfx::ImagePtr made[] = {
        Gfx::ImagePtr(Gfx::NewBuffer(c.width, c.height)),
        Gfx::ImagePtr(Gfx::NewScreenBuffer(c.width, c.height, Gfx::kMagenta)),
        Gfx::ImagePtr(picture->Scale(c.width, c.height))};
    for (const Gfx::ImagePtr& image : made) {
      EXPECT_EQ(image->IsEmpty(), !c.isMade) << c.width << " x " << c.height;
      EXPECT_EQ(image->GetWidth(), c.isMade ? c.width : 0);
    }
  }
  EXPECT_TRUE(Gfx::ImagePtr(Gfx::ImagePtr(Gfx::NewBuffer(8192, 100))->Rotate(1))->IsEmpty());
  EXPECT_TRUE(Gfx::ImagePtr(picture->Rotate(INFINITY))->IsEmpty());
}

TEST_F(CPictureTest, ScalingFollowsTheImageRectangle) {
  const Gfx::ImagePtr image = NewChart(4, 1);
  image->SetRect({0, 0, 2, 1});
  EXPECT_EQ(PixelOf(SurfaceOf(Gfx::ImagePtr(image->Scale(2, 1))), 0, 0), 0xFF000001U);
  image->SetRect({2, 0, 2, 1});
  EXPECT_EQ(PixelOf(SurfaceOf(Gfx::ImagePtr(image->Scale(2, 1))), 0, 0), 0xFF000003U);
  image->PutPixel(0, 0, CColor(0, 0, 77));
  EXPECT_EQ(PixelOf(SurfaceOf(Gfx::ImagePtr(image->Scale(2, 1))), 0, 0), 0xFF00004DU);
}

// A white square in a transparent frame, and one whose frame is the key colour: what smoothing
// mixes in at the rim must be neither black nor magenta.
TEST_F(CPictureTest, TurnedAndSmoothedPicturesHaveCleanRims) {
  constexpr int kSide = 20;
  const Gfx::ImagePtr pictures[] = {
      Gfx::ImagePtr(Gfx::NewBuffer(kSide, kSide)),
      Gfx::ImagePtr(Gfx::NewScreenBuffer(kSide, kSide, Gfx::kMagenta))};
  for (int i = 0; i < kSide * kSide; ++i) {
    const bool isInside = CRect<int>{4, 4, 12, 12}.Contains(i % kSide, i / kSide);
    PixelOf(SurfaceOf(pictures[0]), i % kSide, i / kSide) = isInside ? 0xFFFFFFFF : 0;
    PixelOf(SurfaceOf(pictures[1]), i % kSide, i / kSide) = isInside ? 0xFFFFFF : 0xFF00FF;
  }
  for (const bool smooth : {false, true}) {
    Gfx::ScaleSmoothing() = Gfx::RotateSmoothing() = smooth;
    for (const Gfx::ImagePtr& picture : pictures) {
      const Gfx::ImagePtr made[] = {Gfx::ImagePtr(picture->Rotate(30)),
                                    Gfx::ImagePtr(picture->Scale(33, 47))};
      for (const Gfx::ImagePtr& image : made) {
        SDL_Surface* surface = SurfaceOf(image);
        EXPECT_EQ(surface->flags & (SDL_SRCALPHA | SDL_SRCCOLORKEY | SDL_RLEACCEL), SDL_SRCALPHA);
        EXPECT_EQ(PixelOf(surface, 0, 0) >> 24, 0U);
        EXPECT_EQ(PixelOf(surface, surface->w / 2, surface->h / 2), 0xFFFFFFFFU);
        for (int i = 0; i < surface->w * surface->h; ++i) {
          const CColor color = image->GetPixel(i % surface->w, i / surface->w);
          if (color.a > 16) {
            ASSERT_GE(std::min({color.r, color.g, color.b}), 240) << smooth << " at " << i;
          }
        }
      }
    }
  }
  const Gfx::ImagePtr turned(Gfx::ImagePtr(Gfx::NewBuffer(40, 30))->Rotate(360));
  EXPECT_EQ(turned->GetRect(), (CRect<int>{0, 0, 42, 32}));
}

TEST_F(CPictureTest, WorksWithoutVideo) {
  WriteBmp("dark.bmp", {0xFF00FF, 0x0000FF});
  SDL_Quit();
  const Gfx::ImagePtr loaded(Gfx::LoadImage("dark.bmp", Gfx::kMagenta));
  const Gfx::ImagePtr buffer(Gfx::NewBuffer(2, 1));
  const Gfx::ImagePtr keyed(Gfx::NewScreenBuffer(2, 1, Gfx::kMagenta));
  EXPECT_TRUE(loaded->BlitTo(buffer.get()));
  EXPECT_TRUE(loaded->BlitTo(keyed.get()));
  EXPECT_EQ(buffer->GetPixel(0, 0).a, 0);
  EXPECT_EQ(buffer->GetPixel(1, 0).b, 255);
  EXPECT_FALSE(Gfx::ImagePtr(loaded->Rotate(45))->IsEmpty());
  EXPECT_EQ(sdl::OpenVideoMode(32, 32, 32, 0), nullptr);
  EXPECT_EQ(sdl::GetModeDepth(32, 32, 32, 0), 0);
}

}  // namespace vask::test
