#include <fstream>
#include <iterator>
#include <vector>

#include "sdl_support.h"

namespace vask::test {

namespace {

using Bytes = std::vector<int>;

Bytes ReadFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  Bytes bytes;
  for (std::istreambuf_iterator<char> it(file), end; it != end; ++it) {
    bytes.push_back(static_cast<unsigned char>(*it));
  }
  return bytes;
}

// Two pixels, one below the other, in the given depth: red, then the key colour.
SDL_Surface* NewColumn(int depth, std::uint32_t alphaMask, bool isKeyed) {
  const bool isIndexed = depth <= 8;
  SDL_Surface* surface =
      SDL_CreateRGBSurface(0, 1, 2, depth, isIndexed ? 0 : 0xFF0000, isIndexed ? 0 : 0xFF00,
                           isIndexed ? 0 : 0xFF, alphaMask);
  SDL_Color colors[] = {{255, 0, 0, 0}, {255, 0, 255, 0}};
  if (isIndexed) {
    SDL_FreeSurface(std::exchange(surface, nullptr));
    surface = SDL_CreateRGBSurface(0, 1, 2, depth, 0, 0, 0, 0);
    surface->format->palette->ncolors = 2;
    SDL_SetColors(surface, colors, 0, 2);
    sdl::WritePixel(*surface, 0, 1, 1);
  } else {
    sdl::WritePixel(*surface, 0, 0, 0xFF0000 | (0x80000000 & alphaMask));
    sdl::WritePixel(*surface, 0, 1, 0xFF00FF | (0x20000000 & alphaMask));
  }
  if (isKeyed) {
    SDL_SetColorKey(surface, SDL_SRCCOLORKEY, isIndexed ? 1 : 0xFF00FF);
  }
  return surface;
}

class CSaveFileTest : public CSdlScreen {};

}  // namespace

TEST_F(CSaveFileTest, TgaFilesOfEveryKind) {
  struct {
    int depth;
    std::uint32_t alphaMask;
    bool isKeyed;
    Bytes bytes;
  } const cases[] = {
      {8, 0, false, {0, 1, 1,   0,   0, 2,   0, 24, 0, 0, 0, 0, 1, 0, 2, 0, 8, 0x20,  //
                     0, 0, 255, 255, 0, 255, 0, 1}},
      {8, 0, true, {0, 1, 1,   0,   0,   2, 0,   32, 0, 0, 0, 0, 1, 0, 2, 0, 8, 0x28,  //
                    0, 0, 255, 255, 255, 0, 255, 0,  0, 1}},
      {24, 0, true, {0, 0, 2,   0,   0, 0,  0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 24, 0x20,  //
                     0, 0, 255, 255, 0, 255}},
      {32, 0xFF000000, false, {0, 0, 2,   0,    0,   0, 0,   0,   0,
                               0, 0, 0,   1,    0,   2, 0,   32,  0x28,  //
                               0, 0, 255, 0x80, 255, 0, 255, 0x20}},
  };
  for (const auto& c : cases) {
    CPixelSDL picture(NewColumn(c.depth, c.alphaMask, c.isKeyed));
    const std::uint32_t flags = picture.GetSurface()->flags;
    ASSERT_TRUE(picture.SaveToFile("picture.tga"));
    EXPECT_EQ(ReadFile("picture.tga"), c.bytes) << c.depth << " keyed " << c.isKeyed;
    EXPECT_EQ(picture.GetSurface()->flags, flags);
  }
}

TEST_F(CSaveFileTest, SavesTheImageRectangleUnderTheNamesEnding) {
  CPixelSDL picture(NewColumn(32, 0, false));
  picture.SetRect({0, 1, 1, 1});
  ASSERT_TRUE(picture.SaveToFile("part.tga"));
  EXPECT_EQ(ReadFile("part.tga").size(), 18U + 3U);
  ASSERT_TRUE(picture.SaveToFile("part.TGA"));
  EXPECT_EQ(ReadFile("part.TGA")[0], 'B');
  EXPECT_FALSE(picture.SaveToFile("no/such/folder/part.tga"));
  EXPECT_FALSE(picture.SaveToFile("no/such/folder/part.bmp"));
  EXPECT_FALSE(CPixelSDL().SaveToFile("part.tga"));
}

TEST_F(CSaveFileTest, RefusesTgaBelowEightBits) {
  CPixelSDL picture(SDL_CreateRGBSurface(0, 4, 4, 4, 0, 0, 0, 0));
  EXPECT_FALSE(picture.SaveToFile("small.tga"));
  EXPECT_STREQ(SDL_GetError(), "cannot save <8bpp images as TGA");
}

}  // namespace vask::test
