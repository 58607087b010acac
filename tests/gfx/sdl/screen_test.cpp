// The screen's picture and its dirty rectangles, and saving pictures.

#include "support/logcapture.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace vask::test {
namespace {

class Screen : public testing::Test {
 protected:
  ~Screen() override { CPixelScreenSDL::FullFlip() = true; }

  CTestScreen myScreen{64, 48};
  CPixelScreenSDL& myPicture = myScreen.Picture();
};

TEST_F(Screen, CountsAsChangedWhenTheListIsFull) {
  for (int i = 1; i <= 76; ++i) {
    EXPECT_FALSE(myPicture.IsUpdateAll()) << i;
    myPicture.AddDirtyRect({i % 64, 0, 1, 1});
  }
  EXPECT_TRUE(myPicture.IsUpdateAll());
  myPicture.Flip();
  EXPECT_FALSE(myPicture.IsUpdateAll());
}

TEST_F(Screen, CutsDirtyRectanglesToItself) {
  CPixelScreenSDL::FullFlip() = false;
  myPicture.AddDirtyRect({-9, -9, 5, 5});
  myPicture.AddDirtyRect({64, 0, 5, 5});
  EXPECT_EQ(myPicture.GetDirtyCount(), 0U);
  // SDL would write outside its memory for a rectangle that was not cut.
  myPicture.AddDirtyRect({-9, -9, 9999, 9999});
  EXPECT_EQ(myPicture.GetDirtyCount(), 1U);
  myPicture.Flip();
  EXPECT_EQ(myPicture.GetDirtyCount(), 0U);
  myPicture.AddDirtyRect({0, 0, 64, 48});
  EXPECT_TRUE(myPicture.IsUpdateAll()) << "the screen itself";
  const CLogCapture log;
  myScreen.Resize(32, 24);
  EXPECT_EQ(log.Text(), "myWidth = 32\nmyHeight = 24\n");
  EXPECT_FALSE(myPicture.IsUpdateAll()) << "a new mode";
}

// A red pixel above a magenta one, which is faint, the key colour, or neither; read by SDL_image.
TEST_F(Screen, PicturesAreSavedAsTgaOfEveryDepthElseAsBmp) {
  struct SCase {
    sdl::SPixelFormat format = {.bits = 8};
    bool isKeyed = false;
    std::uint32_t red = 1, magenta = 2;  // as pixels
    int alpha = 255;                     // of the magenta one
    std::uintmax_t size;                 // of the file
  };
  constexpr sdl::SPixelFormat k24Bits{24, 0xFF0000, 0xFF00, 0xFF};
  constexpr sdl::SPixelFormat kAlpha{32, 0xFF0000, 0xFF00, 0xFF, 0xFF000000};
  const SCase cases[] = {
      {.format = k24Bits, .red = 0xFF0000, .magenta = 0xFF00FF, .size = 18 + 6},
      {.format = kAlpha, .red = 0xFFFF0000, .magenta = 0x20FF00FF, .alpha = 0x20, .size = 18 + 8},
      {.size = 18 + 3 * 256 + 2},
      {.isKeyed = true, .alpha = 0, .size = 18 + 1024 + 2},
  };
  for (const SCase& c : cases) {
    const std::string name = std::to_string(c.size) + ".tga";
    SCOPED_TRACE(name);
    const CPixelSDL picture(sdl::NewSurface(1, 2, c.format).release());
    SDL_Color colors[] = {{255, 0, 0, 0}, {255, 0, 255, 0}};
    SDL_SetColors(picture.GetSurface(), colors, 1, 2);
    sdl::WritePixel(*picture.GetSurface(), 0, 0, c.red);
    sdl::WritePixel(*picture.GetSurface(), 0, 1, c.magenta);
    if (c.isKeyed) {
      sdl::SetColorKey(picture.GetSurface(), {255, 0, 255});
    }
    EXPECT_TRUE(picture.SaveToFile(name));
    EXPECT_EQ(std::filesystem::file_size(name), c.size);
    EXPECT_EQ(std::ifstream(name).ignore(1).get(), c.format.bits == 8 ? 1 : 0) << "a palette";
    EXPECT_EQ(std::ifstream(name).ignore(17).get(), c.alpha < 255 ? 0x28 : 0x20) << "from the top";
    const ImagePtr clone(ImagePtr(Gfx::LoadImage(name, 0))->Clone());
    EXPECT_EQ(test::Packed(clone->GetPixel(0, 0)), 0xFFFF0000U);
    EXPECT_EQ(clone->GetPixel(0, 1).a, c.alpha);
    EXPECT_FALSE(picture.SaveToFile("no/such/folder/a.tga"));
  }
  EXPECT_TRUE(myPicture.SaveToFile("tga.bmp"));
  EXPECT_EQ(std::ifstream("tga.bmp").get(), 'B');
}

}  // namespace
}  // namespace vask::test
