#include <fstream>
#include <iterator>
#include <vector>

#include "sdl_support.h"

namespace vask::test {

namespace {

std::vector<int> ReadFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  std::vector<int> bytes;
  for (std::istreambuf_iterator<char> it(file), end; it != end; ++it) {
    bytes.push_back(static_cast<unsigned char>(*it));
  }
  return bytes;
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

}  // namespace

using CSaveFileTest = CSdlScreen;

TEST_F(CSaveFileTest, TgaFilesOfEveryKind) {
  // clang-format off
  struct {
    int depth;
    std::uint32_t alphaMask;
    bool isKeyed;
    std::vector<int> bytes;  // the header, then palette and pixels
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
