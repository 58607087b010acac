#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "gfx/sdl/rgbablit.h"
#include "gfx/sdl/sdltextures.h"
#include "support/logcapture.h"
#include "support/testpicture.h"

namespace vask::test {

namespace {

SDL_Surface* SurfaceOf(const Gfx::ImagePtr& image) { return SurfaceOf(image.get()); }

// Of a 32-bit surface.
std::uint32_t& PixelOf(SDL_Surface* surface, int x, int y = 0) {
  return sdl::Row32(*surface, y)[x];
}
std::uint32_t& PixelOf(const Gfx::ImagePtr& image, int x, int y = 0) {
  return PixelOf(SurfaceOf(image), x, y);
}
// A 32-bit surface of random pixels, with many of the alphas that are treated apart.
sdl::SurfacePtr NewNoise(int width, int height, bool hasAlpha, int seed) {
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
void WriteBmp(const std::string& name, const std::vector<std::uint32_t>& colors) {
  const sdl::SurfacePtr row =
      sdl::NewSurface(static_cast<int>(colors.size()), 1, {32, 0xFF0000, 0x00FF00, 0x0000FF, 0});
  std::copy(colors.begin(), colors.end(), &PixelOf(row.get(), 0));
  ASSERT_EQ(SDL_SaveBMP(row.get(), name.c_str()), 0);
}

std::vector<Uint8> ReadFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  return {text.begin(), text.end()};
}

// Two pixels, one below the other, in the given depth: red, then the key colour.
SDL_Surface* NewColumn(int depth, std::uint32_t alphaMask, bool isKeyed) {
  SDL_Surface* surface =
      depth <= 8 ? SDL_CreateRGBSurface(0, 1, 2, depth, 0, 0, 0, 0)
                 : SDL_CreateRGBSurface(0, 1, 2, depth, 0xFF0000, 0xFF00, 0xFF, alphaMask);
  SDL_Color colors[] = {{255, 0, 0, 0}, {255, 0, 255, 0}};
  if (SDL_Palette* palette = surface->format->palette) {
    palette->ncolors = 2;
    SDL_SetColors(surface, colors, 0, 2);
  }
  sdl::WritePixel(*surface, 0, 0, depth <= 8 ? 0 : 0xFF0000 | (0x80000000 & alphaMask));
  sdl::WritePixel(*surface, 0, 1, depth <= 8 ? 1 : 0xFF00FF | (0x20000000 & alphaMask));
  SDL_SetColorKey(surface, isKeyed ? SDL_SRCCOLORKEY : 0, depth <= 8 ? 1 : 0xFF00FF);
  return surface;
}

struct SReleaser {
  void operator()(int* releases) const { ++*releases; }
};

class CPictureTest : public testing::Test {
 protected:
  // A buffer whose pixels tell their position.
  static Gfx::ImagePtr NewChart(int width, int height) {
    Gfx::ImagePtr chart(Gfx::NewBuffer(width, height));
    for (int i = 0; i < width * height; ++i) {
      PixelOf(chart, i % width, i / width) = 0xFF000000U | static_cast<std::uint32_t>(i + 1);
    }
    return chart;
  }

  CTestScreen myScreen{64, 48};
};

}  // namespace

TEST(Textures, TheLastReferenceFreesOnceUnlessTheTextureIsKept) {
  CTextureManager<int*, SReleaser> textures;
  const CLogCapture log;
  int releases = 0;
  for (const bool isKept : {false, true}) {
    releases = 0;
    textures.AddNew("a", &releases, isKept);
    EXPECT_EQ(textures.GetPointer("a"), &releases);
    EXPECT_TRUE(textures.AddReference(&releases));
    textures.Release(&releases);
    textures.Release(&releases);
    EXPECT_EQ(releases, 0);
    textures.Release(&releases);
    EXPECT_EQ(releases, isKept ? 0 : 1);
    EXPECT_EQ(textures.Exists("a"), isKept);
  }
  EXPECT_FALSE(textures.AddReference(&releases));
  textures.AddNew("a", nullptr, false);
  EXPECT_EQ(textures.GetPointer("missing"), nullptr);
  EXPECT_EQ(textures.GetPointer("a"), &releases);
  int unknown = 0;
  textures.Release(&unknown);
  EXPECT_EQ(unknown, 1);
  textures.Release(nullptr);
  EXPECT_FALSE(textures.AddReference(nullptr));
  const std::string at = "CTextureManager::";
  EXPECT_EQ(log.Text(), at +
                            "AddReference() - trying add a reference to a pointer no longer in the "
                            "memory: a\n" +
                            at +
                            "AddNew() - trying to add a new texture, but we already have one "
                            "of the same name: a\n" +
                            at +
                            "GetPointer() - trying to get pointer to a file that doesn't "
                            "exist: missing\n");
}

TEST_F(CPictureTest, OneFileIsOneSurfaceUntilItsLastPictureDiesAndABufferIsCopied) {
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

  const Gfx::ImagePtr original = NewChart(2, 2);
  const Gfx::ImagePtr copy(Gfx::NewBuffer(original.get()));
  original->ClearRect({0, 0, 2, 2});
  EXPECT_EQ(PixelOf(copy, 1, 1), 0xFF000004U);
  EXPECT_TRUE(Gfx::ImagePtr(Gfx::NewBuffer(Gfx::NullImage()))->IsEmpty());
}

TEST_F(CPictureTest, TheKeyColourOfALoadedPictureIsTransparent) {
  WriteBmp("keyed.bmp", {0xFF00FF, 0x00FF00});
  const Gfx::ImagePtr image(Gfx::LoadImage("keyed.bmp", Gfx::kMagenta));
  const Gfx::ImagePtr clone(image->Clone());
  const Gfx::ImagePtr faded(image->CloneWithAlpha(255));
  for (const IPixel* picture : {image.get(), clone.get(), faded.get()}) {
    const Gfx::ImagePtr target(Gfx::NewScreenBuffer(2, 1, Gfx::kMagenta));
    SDL_FillRect(SurfaceOf(target), nullptr, 0x123456);
    EXPECT_TRUE(picture->BlitTo(target.get()));
    EXPECT_EQ(PixelsOf(SurfaceOf(target)), (std::vector<std::uint32_t>{0x123456, 0x00FF00}));
  }
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
    const std::uint32_t before = c.isInside ? PixelOf(image, 2 + c.x, 1 + c.y) : 0xFF000000U;
    EXPECT_EQ(image->GetPixel(c.x, c.y).Pack(), before) << c.x << " " << c.y;
    image->PutPixel(c.x, c.y, CColor(1, 2, 3));
    EXPECT_EQ(image->GetPixel(c.x, c.y).g == 2, c.isInside) << c.x << " " << c.y;
  }
  // A rectangle that leaves its surface gives access to the surface only.
  image->SetRect({5, 4, 100, 100});
  image->PutPixel(1, 0, CColor(9, 9, 9));
  image->ClearRect({-50, -50, 1000, 1000});
  EXPECT_EQ(PixelOf(image, 5, 4), 0U);
  EXPECT_NE(PixelOf(image, 4, 4), 0U);
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
    PixelOf(image, 0) = c.before;
    image->PutPixel(0, 0, CColor(200, 100, 0, c.alpha));
    EXPECT_EQ(PixelOf(image, 0), c.after) << int{c.alpha};
  }
}

TEST_F(CPictureTest, PixelsKeepTheLayoutOfEveryDepth) {
  for (const int depth : {8, 16, 24, 32}) {
    sdl::OpenVideoMode(64, 48, depth, 0);
    const Gfx::ImagePtr buffer(Gfx::NewScreenBuffer(3, 3, Gfx::kMagenta));
    ASSERT_EQ(SurfaceOf(buffer)->format->BitsPerPixel, depth);
    buffer->PutPixel(1, 1, CColor(255, 255, 255));
    const CColor read = buffer->GetPixel(1, 1);
    EXPECT_TRUE(depth == 8 || read.Pack() == sdl::ReadPixel(*SurfaceOf(buffer), 1, 1)) << depth;
    EXPECT_GE(read.r, depth == 16 ? 31 : 240) << depth;
    EXPECT_EQ(buffer->GetPixel(0, 1).r, 0) << depth;
  }
}

// Random rectangles, many of them partly or wholly outside, between two pictures that show only a
// part of their surfaces.
TEST_F(CPictureTest, BlitsAreCutOnAllSides) {
  const Gfx::ImagePtr source = NewChart(9, 7);
  source->SetRect({2, 1, 6, 5});
  std::mt19937 random(3);
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
    for (int i = 0; i < 8 * 8; ++i) {
      const int x = i % 8 - 1 - to.x + from.x;
      const int y = i / 8 - 2 - to.y + from.y;
      const bool isDrawn = CRect<int>{1, 2, 6, 5}.Contains(i % 8, i / 8) && x >= from.x &&
                           x - from.x < from.w && y >= from.y && y - from.y < from.h &&
                           CRect<int>{0, 0, 6, 5}.Contains(x, y);
      ASSERT_EQ(PixelOf(target, i % 8, i / 8), isDrawn ? PixelOf(source, 2 + x, 1 + y) : 0)
          << "round " << round << " at " << i;
    }
  }
  EXPECT_FALSE(source->BlitTo(Gfx::NullImage()));
}

TEST_F(CPictureTest, ClonesKeepTheImageRectangleAndFadeTheAlpha) {
  const Gfx::ImagePtr image(Gfx::NewBuffer(258, 1));
  image->SetRect({1, 0, 256, 1});
  for (int alpha = 1; alpha < 256; ++alpha) {
    PixelOf(image, 1 + alpha) = static_cast<std::uint32_t>(alpha) << 24 | 0x336699;
  }
  PixelOf(image, 257) = 0xFFFFFFFF;
  for (const int fade : {0, 1, 127, 128, 254, 255}) {
    const Gfx::ImagePtr faded(image->CloneWithAlpha(fade));
    EXPECT_EQ(faded->GetRect(), image->GetRect());
    EXPECT_EQ(PixelOf(faded, 1), 0U);
    EXPECT_EQ(PixelOf(faded, 257), 0U) << "outside the rectangle";
    for (int alpha = 1; alpha < 256; ++alpha) {
      const float share = static_cast<float>(alpha) / 255.0F * (static_cast<float>(fade) / 255.0F);
      ASSERT_EQ(PixelOf(faded, 1 + alpha), static_cast<std::uint32_t>(share * 255) << 24 | 0x336699)
          << alpha << " faded to " << fade;
    }
  }
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
    for (IPixel* made : {Gfx::NewBuffer(c.width, c.height), picture->Scale(c.width, c.height),
                         Gfx::NewScreenBuffer(c.width, c.height, Gfx::kMagenta)}) {
      const Gfx::ImagePtr image(made);
      EXPECT_EQ(image->IsEmpty(), !c.isMade) << c.width << " x " << c.height;
      EXPECT_EQ(image->GetWidth(), c.isMade ? c.width : 0);
    }
  }
  EXPECT_TRUE(Gfx::ImagePtr(Gfx::ImagePtr(Gfx::NewBuffer(8192, 100))->Rotate(1))->IsEmpty());
  EXPECT_TRUE(Gfx::ImagePtr(picture->Rotate(INFINITY))->IsEmpty());
}

TEST_F(CPictureTest, ScalingFollowsTheImageRectangleAndItsPixels) {
  const Gfx::ImagePtr image = NewChart(4, 1);
  const auto scaledPixel = [&] { return PixelOf(Gfx::ImagePtr(image->Scale(2, 1)), 0); };
  image->SetRect({0, 0, 2, 1});
  EXPECT_EQ(scaledPixel(), 0xFF000001U);
  image->SetRect({2, 0, 2, 1});
  EXPECT_EQ(scaledPixel(), 0xFF000003U);
  image->PutPixel(0, 0, CColor(0, 0, 77));
  EXPECT_EQ(scaledPixel(), 0xFF00004DU);
}

// A white square in a transparent frame, and one whose frame is the key colour: what smoothing
// mixes in at the rim must be neither black nor magenta.
TEST_F(CPictureTest, TurnedAndSmoothedPicturesHaveCleanRims) {
  const Gfx::ImagePtr clear(Gfx::NewBuffer(20, 20));
  const Gfx::ImagePtr keyed(Gfx::NewScreenBuffer(20, 20, Gfx::kMagenta));
  for (int i = 0; i < 20 * 20; ++i) {
    const bool isInside = CRect<int>{4, 4, 12, 12}.Contains(i % 20, i / 20);
    PixelOf(clear, i % 20, i / 20) = isInside ? 0xFFFFFFFF : 0;
    PixelOf(keyed, i % 20, i / 20) = isInside ? 0xFFFFFF : 0xFF00FF;
  }
  for (int kind = 0; kind < 8; ++kind) {
    Gfx::ScaleSmoothing() = Gfx::RotateSmoothing() = kind % 2;
    const IPixel& picture = kind < 4 ? *clear : *keyed;
    const Gfx::ImagePtr made(kind % 4 < 2 ? picture.Rotate(30) : picture.Scale(33, 47));
    SDL_Surface* surface = SurfaceOf(made);
    EXPECT_EQ(surface->flags & (SDL_SRCALPHA | SDL_SRCCOLORKEY | SDL_RLEACCEL), SDL_SRCALPHA);
    EXPECT_EQ(PixelOf(surface, 0) >> 24, 0U);
    EXPECT_EQ(PixelOf(surface, surface->w / 2, surface->h / 2), 0xFFFFFFFFU);
    for (const std::uint32_t pixel : PixelsOf(surface)) {
      const auto darkest = std::min({pixel & 0xFF, pixel >> 8 & 0xFF, pixel >> 16 & 0xFF});
      ASSERT_TRUE(pixel >> 24 <= 16 || darkest >= 240) << kind << std::hex << ", " << pixel;
    }
  }
  Gfx::ScaleSmoothing() = 0;
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

// Widths around the four pixels of a step, at every alignment, between all kinds of surfaces.
TEST_F(CPictureTest, PlainBlitsGiveExactlySdlsPixels) {
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

TEST_F(CPictureTest, OverBlitIsWithinOneOfTheExactBlend) {
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

TEST_F(CPictureTest, OverBlitCountsASourceWithoutAlphaAsOpaqueLessItsKey) {
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

TEST_F(CPictureTest, TgaFilesOfEveryKind) {
  // clang-format off
  struct {
    int depth;
    std::uint32_t alphaMask;
    bool isKeyed;
    std::vector<Uint8> bytes;  // the header, then palette and pixels
  } const cases[] = {
      {24, 0, true, {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 24, 0x20,
                     0, 0, 255, 255, 0, 255}},
      {32, 0xFF000000, false, {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 32, 0x28,
                               0, 0, 255, 0x80, 255, 0, 255, 0x20}},
      {8, 0, false, {0, 1, 1, 0, 0, 2, 0, 24, 0, 0, 0, 0, 1, 0, 2, 0, 8, 0x20,
                     0, 0, 255, 255, 0, 255, 0, 1}},
      {8, 0, true, {0, 1, 1, 0, 0, 2, 0, 32, 0, 0, 0, 0, 1, 0, 2, 0, 8, 0x28,
                    0, 0, 255, 255, 255, 0, 255, 0, 0, 1}},
  };
  // clang-format on
  for (const auto& c : cases) {
    CPixelSDL picture(NewColumn(c.depth, c.alphaMask, c.isKeyed));
    const std::uint32_t flags = picture.GetSurface()->flags;
    ASSERT_TRUE(picture.SaveToFile("picture.tga"));
    EXPECT_EQ(ReadFile("picture.tga"), c.bytes) << c.depth << " keyed " << c.isKeyed;
    EXPECT_EQ(picture.GetSurface()->flags, flags);
  }
  // The last one's own transparent index survives loading.
  const Gfx::ImagePtr loaded(Gfx::LoadImage("picture.tga", 0));
  EXPECT_EQ(loaded->GetPixel(0, 1).a, 0);
  EXPECT_EQ(loaded->GetPixel(0, 0).Pack(), 0xFFFF0000U);

  CPixelSDL small(SDL_CreateRGBSurface(0, 4, 4, 4, 0, 0, 0, 0));
  EXPECT_FALSE(small.SaveToFile("small.tga"));
  EXPECT_STREQ(SDL_GetError(), "cannot save <8bpp images as TGA");
  CPixelSDL part(NewColumn(24, 0, false));
  part.SetRect({0, 1, 1, 1});
  ASSERT_TRUE(part.SaveToFile("part.tga"));
  EXPECT_EQ(ReadFile("part.tga").size(), 18U + 3U) << "only the image rectangle";
  ASSERT_TRUE(part.SaveToFile("part.TGA"));
  EXPECT_EQ(ReadFile("part.TGA")[0], 'B');
  EXPECT_FALSE(part.SaveToFile("no/such/folder/part.tga"));
  EXPECT_FALSE(CPixelSDL().SaveToFile("part.tga"));
}

}  // namespace vask::test
