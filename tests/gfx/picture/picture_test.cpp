#include "gfx/picture/gfx.h"
#include "gfx/picture/texturemanager.h"
#include "support/logcapture.h"

#include <gtest/gtest.h>

#include <array>

namespace vask::test {
namespace {

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
TEST(TextureManager, FreesASurfaceWithItsLastReferenceUnlessItIsKept) {
  struct SReleaser {
    void operator()(int* surface) const { *surface = -1; }
  };
  CTextureManager<int*, SReleaser> textures;
  int numbers[] = {0, 0};
  int* const surface = &numbers[0];

  textures.AddNew("door.bmp", surface, false);  // one reference
  textures.GetPointer("door.bmp");              // two
  textures.Release(surface);                    // one
  textures.Release(surface);                    // none: it is freed

  EXPECT_FALSE(textures.Exists("door.bmp"));
  int* const kept = &numbers[1];
  textures.AddNew("kept.bmp", kept, true);
  textures.AddReference(kept);
  for (const int count : {2, 1, 0}) {
    EXPECT_EQ(textures.GetCount("kept.bmp"), count);
    EXPECT_EQ(textures.IsShared(kept), count > 0);
    textures.Release(kept);
  }
  EXPECT_EQ(std::to_array(numbers), (std::array{-1, 0}));
  const CLogCapture log;
  for (const bool reports : {true, false}) {
    textures.SetReportErrors(reports);
    textures.AddNew("kept.bmp", surface, false);
    EXPECT_EQ(textures.GetPointer("none.bmp"), nullptr);
  }
  EXPECT_FALSE(textures.AddReference(kept));
  EXPECT_TRUE(log.Has("reference to a pointer no longer in the memory: kept.bmp"));
  EXPECT_EQ(log.Count("but we already have one of the same name: kept.bmp"), 1U);
  EXPECT_EQ(log.Count("pointer to a file that doesn't exist: none.bmp"), 1U);
}

}  // namespace
}  // namespace vask::test
