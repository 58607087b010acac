#include "gfx/sdl/pixelscreensdl.h"

#include "kernel/applicationfactory.h"
#include "sdl_support.h"

namespace vask::test {

namespace {

class CScreenTest : public CSdlScreen {
 protected:
  void SetUp() override {
    CSdlScreen::SetUp();
    myScreen.Reset(SDL_GetVideoSurface());
  }
  void TearDown() override {
    SetLimit("75");
    CPixelScreenSDL::FullFlip() = true;
    Gfx::ScreenRect() = {};
    CSdlScreen::TearDown();
  }

  static void SetLimit(const char* limit) {
    CApplicationFactory::GetSingletonPtr()->GetConsole()->SetVariable("gfx_flip_rects_size", limit);
  }
  void AddRects(int count) {
    for (int i = 0; i < count; ++i) {
      myScreen.AddDirtyRect({i % kWidth, 0, 1, 1});
    }
  }

  CPixelScreenSDL myScreen;
};

}  // namespace

TEST_F(CScreenTest, TheListHoldsAsManyRectanglesAsTheVariableSays) {
  struct {
    const char* limit;
    int added;
    bool isAll;
  } const cases[] = {{"75", 75, false}, {"75", 76, true}, {"2", 3, true}, {"0", 500, false}};
  for (const auto& c : cases) {
    SetLimit(c.limit);
    AddRects(c.added);
    EXPECT_EQ(myScreen.IsUpdateAll(), c.isAll) << c.limit << ", " << c.added;
    myScreen.Flip();
    EXPECT_FALSE(myScreen.IsUpdateAll());
    EXPECT_EQ(myScreen.GetDirtyCount(), 0U);
  }
}

TEST_F(CScreenTest, RectanglesAreCutToTheScreenAndTheScreenItselfIsEverything) {
  CPixelScreenSDL::FullFlip() = false;
  myScreen.AddDirtyRect({-10, -10, 5, 5});
  myScreen.AddDirtyRect({kWidth, 0, 5, 5});
  EXPECT_EQ(myScreen.GetDirtyCount(), 0U);
  // SDL would write outside its memory for a rectangle that was not cut.
  myScreen.AddDirtyRect({-10, -10, 10000, 10000});
  EXPECT_EQ(myScreen.GetDirtyCount(), 1U);
  myScreen.Flip();
  EXPECT_EQ(myScreen.GetDirtyCount(), 0U);
  myScreen.AddDirtyRect({0, 0, kWidth, kHeight});
  EXPECT_TRUE(myScreen.IsUpdateAll());
  AddRects(3);
  EXPECT_EQ(myScreen.GetDirtyCount(), 0U);
}

TEST_F(CScreenTest, FollowsTheSurfaceThroughAModeChange) {
  SDL_Surface* larger = sdl::OpenVideoMode(100, 80, 32, 0);
  myScreen.Reset(larger);
  EXPECT_EQ(myScreen.GetRect(), (CRect<int>{0, 0, 100, 80}));
  EXPECT_EQ(Gfx::ScreenRect(), myScreen.GetRect());
  EXPECT_EQ(sdl::OpenVideoMode(-1, 5, 32, 0), nullptr);
  EXPECT_EQ(sdl::OpenVideoMode(70000, 70000, 32, 0), nullptr);
  EXPECT_EQ(sdl::GetVideoSurface(), nullptr);
  myScreen.Reset(sdl::GetVideoSurface());
  myScreen.Flip();
  EXPECT_TRUE(myScreen.IsEmpty());
}

}  // namespace vask::test
