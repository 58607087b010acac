#include <gtest/gtest.h>

#include <memory>

#include "console/consoleparams.h"
#include "events/eventbridge.h"
#include "gfx/screenlayer.h"
#include "gfx/sdl/gfxfactorysdl.h"
#include "gfx/sdl/pixelscreensdl.h"
#include "gfx/sdl/video.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "tasks/taskgfxsdl.h"
#include "tasks/taskwindowsdl.h"
#include "tasks/testtaskgfx.h"

namespace vask::test {

namespace {

class CGfxTest : public testing::Test {
 protected:
  void SetUp() override {
    CConsoleParams params;
    for (const int number : {640, 480, 32}) {
      params.AddNumber(number);
    }
    myWindow->Start(&params);
  }
  void TearDown() override {
    myTask.reset();
    myWindow.reset();
    SDL_Quit();
  }

  static void Resize(int width, int height) {
    CEventBridge::GetSingletonPtr()->Resize(width, height);
  }

  // Whether an update comes to the flip.
  bool DrawsFrame() {
    auto& screen = dynamic_cast<CPixelScreenSDL&>(*Gfx::GetScreen());
    screen.AddDirtyRect({0, 0, 1, 1});
    myTask->Update();
    return screen.GetDirtyCount() == 0;
  }

  CFakeClock myClock;
  std::unique_ptr<CTaskWindowSDL> myWindow = std::make_unique<CTaskWindowSDL>();
  std::unique_ptr<CTaskGfxSDL> myTask = std::make_unique<CTaskGfxSDL>();
};

}  // namespace

TEST_F(CGfxTest, FramesAreAtLeast16MillisecondsApart) {
  EXPECT_TRUE(myTask->Start());
  EXPECT_TRUE(DrawsFrame());
  struct {
    unsigned pause;
    bool isDrawn;
  } const cases[] = {{0, false}, {15, false}, {1, true}, {15, false}, {100, true}, {16, true}};
  for (const auto& c : cases) {
    myClock.Advance(c.pause);
    EXPECT_EQ(DrawsFrame(), c.isDrawn) << c.pause;
  }
  // Real time: the pacing goes on while the application timer stands still.
  CEventBridge::GetSingletonPtr()->FocusEvent(false);
  myClock.Advance(16);
  EXPECT_TRUE(DrawsFrame());
  CEventBridge::GetSingletonPtr()->FocusEvent(true);
}

TEST_F(CGfxTest, EveryResizeRedrawsTheWholeScreenInItsNewSize) {
  myTask->Start();
  myTask->Update();
  for (const int width : {90, 90, 110}) {
    Resize(width, 60);
    EXPECT_EQ(Gfx::ScreenRect(), (CRect<int>{0, 0, width, 60}));
    EXPECT_EQ(Gfx::GetScreen()->GetRect(), Gfx::ScreenRect());
    CLogCapture log;
    for (int frame = 0; frame < 2; ++frame) {
      myClock.Advance(16);
      myTask->Update();
    }
    EXPECT_EQ(log.Count("drawing all"), 1U) << width;
  }
}

TEST_F(CGfxTest, AFailedModeStopsTheDrawingUntilTheNextSucceeds) {
  myTask->Start();
  myTask->Update();
  Resize(-1, -1);
  EXPECT_TRUE(Gfx::GetScreen()->IsEmpty());
  CLogCapture log;
  myClock.Advance(16);
  myTask->Update();
  EXPECT_TRUE(log.Lines().empty());
  Resize(80, 60);
  myClock.Advance(16);
  myTask->Update();
  EXPECT_TRUE(log.Has("drawing all"));
  EXPECT_EQ(Gfx::GetScreen()->GetWidth(), 80);
}

TEST_F(CGfxTest, FindsAWindowThatOpensAfterIt) {
  myWindow->Exit();
  myTask->Start();
  EXPECT_TRUE(Gfx::GetScreen()->IsEmpty());
  myTask->Update();
  myWindow->Start();
  myClock.Advance(16);
  myTask->Update();
  EXPECT_EQ(Gfx::GetScreen()->GetWidth(), 640);
}

TEST_F(CGfxTest, StartsAndEndsAnyNumberOfTimes) {
  myTask->Exit();
  myTask->Update();
  for (int round = 0; round < 2; ++round) {
    myTask->Start();
    EXPECT_EQ(Gfx::GetScreen()->GetWidth(), 640);
    EXPECT_NE(Gfx::GetFactory(), nullptr);
    myTask->Update();
    EXPECT_NE(CScreenLayer::PeekSingletonPtr(), nullptr);
    myTask->Exit();
    myTask->Exit();
    EXPECT_EQ(CScreenLayer::PeekSingletonPtr(), nullptr);
    EXPECT_EQ(Gfx::GetFactory(), nullptr);
    EXPECT_EQ(Gfx::GetScreen(), Gfx::NullImage());
    const CRect<int> before = Gfx::ScreenRect();
    Resize(333 + round, 222);
    EXPECT_EQ(Gfx::ScreenRect(), before);
    Resize(640, 480);
    myTask->Update();
  }
}

TEST_F(CGfxTest, WithoutAFactoryNothingIsMadeAndEachCallWarns) {
  CLogCapture log;
  EXPECT_EQ(Gfx::NewBuffer(1, 1), Gfx::NullImage());
  EXPECT_EQ(Gfx::NewBuffer(Gfx::NullImage()), Gfx::NullImage());
  EXPECT_EQ(Gfx::LoadImage("x.bmp", Gfx::kMagenta), Gfx::NullImage());
  Gfx::FreeImage(Gfx::NullImage());
  const char kCreate[] = "no GFXFactory given, cannot create graphics surface.";
  const std::vector<CLogCapture::SLine> expected = {
      {std::string("Gfx::NewBuffer() - ") + kCreate, kLogWarning},
      {std::string("Gfx::NewBuffer() - ") + kCreate, kLogWarning},
      {std::string("Gfx::LoadImage() - ") + kCreate, kLogWarning},
      {"Gfx::FreeImage() - no GFXFactory given, cannot free graphics surface.", kLogWarning}};
  EXPECT_EQ(log.Lines(), expected);
}

TEST_F(CGfxTest, TheTestTaskDrawsOnTheScreen) {
  CTestTaskGfx test;
  test.Update();
  myTask->Start();
  EXPECT_TRUE(test.Start());
  test.Update();
  const CColor middleOfDisc = Gfx::GetScreen()->GetPixel(16 + 48, 16 + 48);
  EXPECT_EQ(middleOfDisc.b, 160);
  test.Exit();
  test.Exit();
  test.Update();
}

TEST(SdlLibrary, RegistersItsTypesOnDemandAndTheTestTaskAtOnce) {
  CTaskFactory::TypeFactory& types = CTaskFactory::GetSingletonPtr()->GetPlugFactory();
  using TaskPtr = std::unique_ptr<CTask>;
  EXPECT_NE(TaskPtr(types.GetNew("gfxtest")), nullptr);
  EXPECT_EQ(TaskPtr(types.GetNew("window")), nullptr);
  CTaskLibraries::GetSingletonPtr()->Load("sdl");
  EXPECT_NE(dynamic_cast<CTaskWindowSDL*>(TaskPtr(types.GetNew("window")).get()), nullptr);
  EXPECT_NE(dynamic_cast<IMouseHardware*>(TaskPtr(types.GetNew("event")).get()), nullptr);
  EXPECT_NE(dynamic_cast<CTaskGfxSDL*>(TaskPtr(types.GetNew("gfx")).get()), nullptr);
}

}  // namespace vask::test
