// The screen's picture and its dirty rectangles, saving pictures, pipes in the place of files, and
// what pictures need: the facade without a factory, and the manager of their surfaces.

#include "gfx/picture/texturemanager.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "utils/inputfile.h"
#include "utils/outputfile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vask::test {
namespace {

struct Screen : testing::Test {
  ~Screen() override { CPixelScreenSDL::FullFlip() = true; }

  CTestScreen myScreen{64, 48};
  CPixelScreenSDL& myPicture = myScreen.Picture();
};

TEST_F(Screen, CountsAsChangedWhenTheListIsFull) {
  for (const int size : {75, 3}) {
    for (int i = 0; i <= size; ++i) {
      EXPECT_FALSE(myPicture.IsUpdateAll()) << i << " of " << size;
      myPicture.AddDirtyRect({i % 64, 0, 1, 1});
    }
    EXPECT_TRUE(myPicture.IsUpdateAll()) << size;
    myPicture.Flip();
    Execute("gfx_flip_rects_size = 3");
  }
  Execute("gfx_flip_rects_size = 75");
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
  myPicture.AddDirtyRect({1, 1, 1, 1});
  EXPECT_TRUE(myPicture.IsUpdateAll()) << "the screen itself";
  EXPECT_EQ(myPicture.GetDirtyCount(), 0U);
  const CLogCapture log;
  myScreen.Resize(32, 24);
  EXPECT_EQ(log.Text(), "myWidth = 32\nmyHeight = 24\n");
  EXPECT_FALSE(myPicture.IsUpdateAll()) << "a new mode";
}

// The colours 1 and 2 of a palette, red and magenta, one above the other; read by SDL_image.
TEST_F(Screen, PicturesWithAPaletteAreSavedAsTgaWithItElseAsBmp) {
  for (const bool isKeyed : {false, true}) {
    SCOPED_TRACE(isKeyed ? "keyed" : "not keyed");
    const CPixelSDL picture(sdl::NewSurface(1, 2, {.bits = 8}).release());
    SDL_Color colors[] = {{255, 0, 0, 0}, {255, 0, 255, 0}};
    SDL_SetColors(picture.GetSurface(), colors, 1, 2);
    sdl::WritePixel(*picture.GetSurface(), 0, 0, 1);
    sdl::WritePixel(*picture.GetSurface(), 0, 1, 2);
    if (isKeyed) {
      sdl::SetColorKey(picture.GetSurface(), {255, 0, 255});
    }
    EXPECT_EQ(picture.GetPixel(0, 1).b, 255);
    EXPECT_TRUE(picture.SaveToFile("palette.tga"));
    EXPECT_FALSE(picture.SaveToFile("no/such/folder/a.tga"));
    const std::string file = FileText("palette.tga");
    EXPECT_EQ(file.at(1), 1) << "it has a palette";
    EXPECT_EQ(file.at(7), isKeyed ? 32 : 24) << "bits of its colours";
    EXPECT_EQ(file.at(17), isKeyed ? 0x28 : 0x20) << "from the top down, and the bits of alpha";
    const ImagePtr clone(ImagePtr(Gfx::LoadImage("palette.tga", 0))->Clone());
    EXPECT_EQ(Packed(clone->GetPixel(0, 0)), 0xFFFF0000U);
    EXPECT_EQ(clone->GetPixel(0, 1).a, isKeyed ? 0 : 255);
  }
  EXPECT_FALSE(CPixelSDL().SaveToFile("empty.tga"));
  EXPECT_TRUE(myPicture.SaveToFile("tga.bmp"));
  EXPECT_EQ(FileText("tga.bmp").at(0), 'B');
}

// Reading a pipe without a writer would wait for ever, as would writing to one without a reader.
TEST_F(Screen, PipesAreNeitherReadNorWritten) {
  ASSERT_EQ(mkfifo("pipe.png", 0600), 0);
  EXPECT_FALSE(OpenInputFile("pipe.png").is_open());
  EXPECT_TRUE(ImagePtr(Gfx::LoadImage("pipe.png", Gfx::kMagenta))->IsEmpty());
  const int reader = open("pipe.png", O_RDONLY | O_NONBLOCK);  // to look
  OpenOutputFile("pipe.png") << "text";
  myPicture.SaveToFile("pipe.png");
  char written = 0;
  EXPECT_EQ(read(reader, &written, 1), 0);
  close(reader);
}

TEST(Gfx, MakesTheNullPictureAndWarnsWithoutAFactory) {
  IPixel* const null = Gfx::GetScreen();
  const CLogCapture log;
  for (const IPixel* made :
       {Gfx::NewBuffer(2, 3), Gfx::NewBuffer(null), Gfx::LoadImage("a.bmp", 0)}) {
    EXPECT_EQ(made, Gfx::NullImage());
  }
  const std::string cannotCreate = "() - no GFXFactory given, cannot create graphics surface.";
  EXPECT_EQ(log.Count("Gfx::NewBuffer" + cannotCreate), 2U);
  EXPECT_TRUE(log.Has("Gfx::LoadImage" + cannotCreate));
  Gfx::FreeImage(null);
  EXPECT_TRUE(log.Has("Gfx::FreeImage() - no GFXFactory given, cannot free graphics surface."));
}

// Surfaces are plain numbers here; a freed one is -1.
TEST(TextureManager, HasOneSurfaceOfANameUntilItsLastReferenceUnlessItIsKept) {
  struct SReleaser {
    void operator()(int* surface) const { *surface = -1; }
  };
  CTextureManager<int*, SReleaser> textures;
  int number = 0, kept = 0;
  int* const surface = &number;

  textures.AddNew("door.bmp", surface, false);  // one reference
  textures.GetPointer("door.bmp");              // two
  textures.Release(surface);                    // one
  textures.Release(surface);                    // none: it is freed

  EXPECT_FALSE(textures.Exists("door.bmp"));
  EXPECT_EQ(number, -1);
  textures.AddNew("kept.bmp", &kept, true);
  textures.Release(&kept);
  EXPECT_FALSE(textures.IsShared(&kept));
  EXPECT_EQ(kept, 0);
  const CLogCapture log;
  for (const bool reports : {true, false}) {
    textures.SetReportErrors(reports);
    textures.AddNew("kept.bmp", surface, false);
  }
  EXPECT_EQ(log.Count("but we already have one of the same name: kept.bmp"), 1U);
}

}  // namespace
}  // namespace vask::test
