#include <gtest/gtest.h>

#include <set>

#include "gfx/texturemanager.h"
#include "support/logcapture.h"

namespace vask::test {

namespace {

std::multiset<int*> ourReleased;

struct SReleaser {
  void operator()(int* surface) const { ourReleased.insert(surface); }
};

class CTexturesTest : public testing::Test {
 protected:
  CTexturesTest() { ourReleased.clear(); }

  CTextureManager<int*, SReleaser> myTextures;
  CLogCapture myLog;
  int mySurface = 0;
  int myOther = 0;
};

}  // namespace

TEST_F(CTexturesTest, TheLastReferenceFreesOnce) {
  myTextures.AddNew("a", &mySurface, false);
  EXPECT_EQ(myTextures.GetPointer("a"), &mySurface);
  EXPECT_TRUE(myTextures.AddReference(&mySurface));
  myTextures.Release(&mySurface);
  myTextures.Release(&mySurface);
  EXPECT_TRUE(ourReleased.empty());
  myTextures.Release(&mySurface);
  EXPECT_EQ(ourReleased.count(&mySurface), 1U);
  EXPECT_FALSE(myTextures.Exists("a"));
}

TEST_F(CTexturesTest, KeptSurfacesStayAndComeBack) {
  myTextures.AddNew("kept", &mySurface, true);
  myTextures.Release(&mySurface);
  myTextures.Release(&mySurface);
  EXPECT_TRUE(ourReleased.empty());
  EXPECT_FALSE(myTextures.AddReference(&mySurface));
  EXPECT_TRUE(myLog.Has("a pointer no longer in the memory: kept"));
  EXPECT_EQ(myTextures.GetPointer("kept"), &mySurface);
  EXPECT_TRUE(myTextures.AddReference(&mySurface));
}

TEST_F(CTexturesTest, UnknownSurfacesAreFreedAndNullIsNothing) {
  myTextures.Release(&myOther);
  EXPECT_EQ(ourReleased.count(&myOther), 1U);
  myTextures.Release(nullptr);
  EXPECT_EQ(ourReleased.size(), 1U);
  EXPECT_FALSE(myTextures.AddReference(nullptr));
  EXPECT_TRUE(myLog.Lines().empty());
}

TEST_F(CTexturesTest, MisuseIsReportedAndChangesNothing) {
  myTextures.AddNew("a", &mySurface, false);
  myTextures.AddNew("a", &myOther, false);
  EXPECT_EQ(myTextures.GetPointer("missing"), nullptr);
  const std::vector<CLogCapture::SLine> expected = {
      {"CTextureManager::AddNew() - trying to add a new texture, but we already have one of the "
       "same "
       "name: a",
       kLogError},
      {"CTextureManager::GetPointer() - trying to get pointer to a file that doesn't exist: "
       "missing",
       kLogWarning}};
  EXPECT_EQ(myLog.Lines(), expected);
  EXPECT_EQ(myTextures.GetPointer("a"), &mySurface);
  myLog.Clear();
  myTextures.SetReportErrors(false);
  myTextures.AddNew("a", &myOther, false);
  myTextures.GetPointer("missing");
  EXPECT_TRUE(myLog.Lines().empty());
}

}  // namespace vask::test
