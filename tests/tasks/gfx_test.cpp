#include "events/eventbridge.h"
#include "gfx/animation/animationupdator.h"
#include "kernel/kernel.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "tasks/taskgfxsdl.h"
#include "tasks/taskwindowsdl.h"
#include "tasks/testtaskgfx.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

struct GfxTask : testing::Test {
  GfxTask() { StartWith(myWindow, "640, 480, 32"); }
  ~GfxTask() override {
    myTask.Exit();
    myWindow.Exit();
    CKernel::DeleteSingleton();
  }
  // Whether an update after the pause comes to the flip.
  bool DrawsFrame(unsigned pause) {
    auto& screen = dynamic_cast<CPixelScreenSDL&>(*Gfx::GetScreen());
    screen.AddDirtyRect({0, 0, 1, 1});
    myClock.Advance(pause);
    myTask.Update();
    return screen.GetDirtyCount() == 0;
  }

  CEventBridge& myBridge = *CEventBridge::GetSingletonPtr();
  CFakeClock myClock;
  CTaskWindowSDL myWindow;
  CTaskGfxSDL myTask;
};

TEST_F(GfxTask, FramesAreAtLeast16MillisecondsApart) {
  EXPECT_TRUE(myTask.Start());
  EXPECT_TRUE(DrawsFrame(0)) << "the first one at once";
  CKernel& kernel = *CKernel::GetSingletonPtr();
  kernel.FrameSleep() = 50;
  EXPECT_EQ(kernel.NextSleep(), 16) << "no longer than to the next one";
  EXPECT_FALSE(DrawsFrame(15));
  EXPECT_EQ(kernel.NextSleep(), 1);
  EXPECT_TRUE(DrawsFrame(1));
  EXPECT_FALSE(DrawsFrame(15)) << "from the last one on";
  EXPECT_TRUE(DrawsFrame(100));
  myBridge.FocusEvent(false);
  EXPECT_TRUE(DrawsFrame(16)) << "the pacing stood still with the application timer";
  myBridge.FocusEvent(true);
}

TEST_F(GfxTask, EachStartBeginsTheTimeOfAnimationsAnew) {
  const CAnimationUpdator& updator = *CAnimationUpdator::GetSingletonPtr();
  for (const char* start : {"first", "second"}) {
    SCOPED_TRACE(start);
    myClock.Advance(500);
    myTask.Start();
    DrawsFrame(0);
    EXPECT_EQ(updator.GetTime(), 0U);
    DrawsFrame(50);
    EXPECT_EQ(updator.GetTime(), 50U);
    myTask.Exit();
  }
}

TEST_F(GfxTask, TheTestPicturesFadeScaleAndTurn) {
  CTestTaskGfx pictures;
  myTask.Start();
  pictures.Start(nullptr);
  pictures.Update();
  pictures.Update();  // on a new ground
  EXPECT_EQ(ScreenColor(64, 64), 0x7F7FA0U);
  EXPECT_NEAR(ScreenColor(64, 20) & 0xFF, 160 * 61 / 255, 1) << "the rim";
  EXPECT_NEAR(ScreenColor(176, 64) & 0xFF, 160 * 191 / 255, 1) << "faded";
  EXPECT_EQ(ScreenColor(304, 176), 0xE6E6E6U) << "a bar beside two thirds of the width";
  EXPECT_EQ(ScreenColor(400, 176), 0x7F7FA0U) << "in its own size";
  EXPECT_NEAR(ScreenColor(64, 176) & 0xFF, 160, 8) << "turned";
}

TEST_F(GfxTask, EveryNewModeIsDrawnWholeAndAFailedOneNotAtAll) {
  myTask.Start();
  myTask.Update();
  myWindow.Exit();
  EXPECT_TRUE(Gfx::GetScreen()->IsEmpty()) << "keeps what SDL has freed";
  Gfx::GetScreen()->PutPixel(0, 0, CColor());
  myWindow.Start();
  CLogCapture log;
  DrawsFrame(16);
  EXPECT_TRUE(log.Has("drawing all")) << "of a window that opened late";
  // How often all is drawn in two frames of a mode of that width.
  const auto drawnAt = [&](int width) {
    myBridge.Resize(width, 60);
    Gfx::GetScreen()->ClearRect({0, 0, 640, 480});  // never beyond the new surface
    log.Clear();
    DrawsFrame(16);
    DrawsFrame(16);
    EXPECT_EQ(Gfx::GetScreen()->GetRect(), Gfx::ScreenRect()) << width;
    return log.Count("drawing all");
  };
  EXPECT_EQ(drawnAt(90), 1U);
  EXPECT_EQ(drawnAt(90), 1U) << "the same size again";
  EXPECT_EQ(drawnAt(-1), 0U) << "none";
  EXPECT_EQ(drawnAt(110), 1U);
}

TEST_F(GfxTask, TheLastOneTakesAFactoryAlongThatSomebodyElseHasSet) {
  CTaskGfxSDL other;
  myTask.Start();
  other.Start();
  Gfx::SetFactory(new CGfxFactorySDL);
  other.Exit();
  EXPECT_NE(Gfx::GetFactory(), nullptr);
  myTask.Exit();
  EXPECT_EQ(Gfx::GetFactory(), nullptr);
  EXPECT_EQ(Gfx::GetScreen(), Gfx::NullImage());
  EXPECT_EQ(CScreenLayer::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace vask::test
