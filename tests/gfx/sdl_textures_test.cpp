#include <gtest/gtest.h>

#include "gfx/texturemanager.h"
#include "support/logcapture.h"

namespace vask::test {

namespace {

struct SReleaser {
  void operator()(int* releases) const { ++*releases; }
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

}  // namespace vask::test
