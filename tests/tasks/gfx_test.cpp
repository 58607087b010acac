#include <gtest/gtest.h>

#include <memory>

#include "events/eventbridge.h"
#include "gfx/screenlayer.h"
#include "gfx/sdl/pixelscreensdl.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "tasks/taskgfxsdl.h"
#include "tasks/taskwindowsdl.h"

namespace vask::test {

namespace {

class CGfxTest : public testing::Test {
 protected:
  void SetUp() override { StartWith(myWindow, "640, 480, 32"); }
  void TearDown() override {
    myTask.Exit();
    myWindow.Exit();
  }
  static void Resize(int width, int height) {
    CEventBridge::GetSingletonPtr()->Resize(width, height);
  }
  // Whether an update after the pause comes to the flip.
  bool DrawsFrame(unsigned pause) {
    auto& screen = dynamic_cast<CPixelScreenSDL&>(*Gfx::GetScreen());
    screen.AddDirtyRect({0, 0, 1, 1});
    myClock.Advance(pause);
    myTask.Update();
    return screen.GetDirtyCount() == 0;
  }

  CFakeClock myClock;
  CTaskWindowSDL myWindow;
  CTaskGfxSDL myTask;
};

}  // namespace

TEST_F(CGfxTest, FramesAreAtLeast16MillisecondsApart) {
  EXPECT_TRUE(myTask.Start());
  const std::pair<unsigned, bool> cases[] = {{0, true},   {0, false},  {15, false}, {1, true},
                                             {15, false}, {100, true}, {16, true}};
  for (const auto& [pause, isDrawn] : cases) {
    EXPECT_EQ(DrawsFrame(pause), isDrawn) << pause;
  }
  CEventBridge::GetSingletonPtr()->FocusEvent(false);
  EXPECT_TRUE(DrawsFrame(16)) << "the pacing stood still with the application timer";
  CEventBridge::GetSingletonPtr()->FocusEvent(true);
}

TEST_F(CGfxTest, EveryNewModeIsDrawnWholeAndAFailedOneNotAtAll) {
  myWindow.Exit();
  myTask.Start();
  EXPECT_TRUE(Gfx::GetScreen()->IsEmpty());
  myTask.Update();
  myWindow.Start();
  CLogCapture log;
  DrawsFrame(16);
  EXPECT_EQ(Gfx::GetScreen()->GetWidth(), 640) << "of a window that opened late";
  EXPECT_TRUE(log.Has("drawing all"));
  for (const int width : {90, 90, -1, 110}) {
    Resize(width, 60);
    Gfx::GetScreen()->ClearRect({0, 0, 640, 480});  // never beyond the new surface
    log.Clear();
    DrawsFrame(16);
    EXPECT_EQ(log.Has("drawing all"), width > 0) << width;
    log.Clear();
    DrawsFrame(16);
    EXPECT_EQ(log.Text(), "") << width;
    EXPECT_EQ(Gfx::GetScreen()->GetWidth(), std::max(width, 0));
    EXPECT_EQ(Gfx::GetScreen()->GetRect(), Gfx::ScreenRect());
  }
}

TEST_F(CGfxTest, StartsAndEndsAnyNumberOfTimes) {
  CTaskGfxSDL second;
  myTask.Exit();
  myTask.Update();
  for (int round = 0; round < 2; ++round) {
    myTask.Start();
    second.Start();
    second.Update();
    myTask.Exit();
    EXPECT_EQ(Gfx::GetScreen()->GetWidth(), 640);
    EXPECT_NE(Gfx::GetFactory(), nullptr);
    second.Exit();
    second.Exit();
    EXPECT_EQ(CScreenLayer::PeekSingletonPtr(), nullptr);
    EXPECT_EQ(Gfx::GetFactory(), nullptr);
    EXPECT_EQ(Gfx::GetScreen(), Gfx::NullImage());
    const CRect<int> before = Gfx::ScreenRect();
    Resize(333 + round, 222);
    EXPECT_EQ(Gfx::ScreenRect(), before);
    Resize(640, 480);
  }
}

TEST_F(CGfxTest, WithoutAFactoryNothingIsMadeAndEachCallWarns) {
  CLogCapture log;
  EXPECT_EQ(Gfx::ImagePtr(Gfx::NewBuffer(1, 1)).get(), Gfx::NullImage());
  EXPECT_EQ(Gfx::NewBuffer(Gfx::NullImage()), Gfx::NullImage());
  EXPECT_EQ(Gfx::LoadImage("x.bmp", Gfx::kMagenta), Gfx::NullImage());
  Gfx::FreeImage(Gfx::NullImage());
  const std::string cause = "() - no GFXFactory given, cannot ";
  const std::string creation = cause + "create graphics surface.\n";
  EXPECT_EQ(log.Text(), "Gfx::NewBuffer" + creation + "Gfx::NewBuffer" + creation +
                            "Gfx::LoadImage" + creation + "Gfx::FreeImage" + cause +
                            "free graphics surface.\n");
  EXPECT_EQ(log.Lines().back().level, kLogWarning);
}

TEST_F(CGfxTest, TheTestTaskDrawsOnTheScreen) {
  const std::unique_ptr<CTask> test(
      CTaskFactory::GetSingletonPtr()->GetPlugFactory().GetNew("gfxtest"));
  test->Update();
  myTask.Start();
  EXPECT_TRUE(test->Start());
  test->Update();
  EXPECT_EQ(Gfx::GetScreen()->GetPixel(16 + 48, 16 + 48).b, 160) << "the middle of the disc";
  test->Exit();
  test->Update();
}

}  // namespace vask::test
