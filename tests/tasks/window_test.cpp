#include "events/eventbridge.h"
#include "gfx/picture/gfx.h"
#include "gfx/sdl/surface.h"
#include "gfx/sdl/video.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "tasks/taskwindowsdl.h"

#include <gtest/gtest.h>

#include <memory>

namespace vask::test {
namespace {

// The size, the mode and the title of the window.
std::string Seen() {
  char* title = nullptr;
  SDL_WM_GetCaption(&title, nullptr);
  const SDL_Surface& screen = *SDL_GetVideoSurface();
  return std::to_string(screen.w) + " x " + std::to_string(screen.h) +
         ((screen.flags & SDL_FULLSCREEN) != 0 ? " full " : " ") + (title != nullptr ? title : "");
}

struct WindowTask : testing::Test {
  ~WindowTask() override { SDL_Quit(); }
  void Start(const std::string& params) {
    SDL_Quit();
    myTask = std::make_unique<CTaskWindowSDL>();
    EXPECT_FALSE(StartWith(*myTask, params)) << "it needs no updates";
  }
  std::string Run(const std::string& line) { return myTask->GetConsole()->Execute(line, false); }
  std::string SeenAfter(const std::string& line) {
    EXPECT_EQ(Run(line), "") << line;
    EXPECT_EQ(CEventBridge::GetSingletonPtr()->GetWidth(), SDL_GetVideoSurface()->w) << line;
    return Seen();
  }

  std::unique_ptr<CTaskWindowSDL> myTask = std::make_unique<CTaskWindowSDL>();
};

TEST_F(WindowTask, StartsAsItsParametersSay) {
  const auto expect = [this](const char* params, const char* seen, std::uint32_t flags) {
    Start(params);
    EXPECT_EQ(Seen(), seen);
    EXPECT_EQ(myTask->GetFlags(), flags) << params;
  };
  constexpr std::uint32_t kUsual = SDL_RESIZABLE | SDL_ANYFORMAT;
  // First: the compatibility library keeps a title beyond SDL_Quit.
  expect(R"(320, 200, 16, 0, 1, "", "", 0)", "320 x 200 ", SDL_RESIZABLE | SDL_NOFRAME);
  expect("", "640 x 480 SDL Window", kUsual);
  expect("320.9, 200.9", "320 x 200 SDL Window", kUsual);
  expect("320, 200, 32, 0, 0, Brumble", "320 x 200 Brumble", 0);
  expect("320, 200, 0, 1, 1", "320 x 200 full SDL Window", 0);
  expect("wide, 200, deep, no, no, 7, 7, no", "640 x 200 SDL Window", kUsual);
}

TEST_F(WindowTask, CommandsChangeTheWindow) {
  const CLogCapture log;
  EXPECT_TRUE(myTask->ExecuteCommand("Fullscreen")) << "nothing before the start";
  Start("100, 80, 32, 0, 0, Small");
  EXPECT_EQ(Gfx::NewSurfaceFlags(), 0U);
  EXPECT_TRUE(log.Has("Running with SDL version: "));
  EXPECT_TRUE(log.Has("Valid resolutions for current flags"));
  EXPECT_EQ(SeenAfter("SetName(\"A title\")"), "100 x 80 A title");
  EXPECT_EQ(SeenAfter("SetName"), "100 x 80 ");
  EXPECT_EQ(SeenAfter("Resize(120)"), "120 x 80 ");
  EXPECT_EQ(SeenAfter("Resize(word, 90.9)"), "120 x 90 ");
  EXPECT_EQ(SeenAfter("Fullscreen"), "120 x 90 full ");
  EXPECT_EQ(SeenAfter("fullscreen"), "120 x 90 ");
  EXPECT_EQ(Run("Resize"), "[ERROR] You should give atleast two parameters");
  EXPECT_EQ(Run("SetIcon"), "[ERROR] You have to give atleast one parameter");
  Run("SetIcon(missing.bmp)");
  EXPECT_TRUE(log.Has(" Could not load file: missing.bmp"));
  EXPECT_FALSE(log.Has("is not available"));
}

TEST_F(WindowTask, AnIconHasAtMost32PixelsASide) {
  const CLogCapture log;
  const auto refused = [&](int width, int height) {
    SDL_SaveBMP(sdl::NewSurface(width, height, {.bits = 24}).get(), "icon.bmp");
    Start("100, 80, 32, 0, 0, Small, icon.bmp");
    return log.Count("is larger than 32 pixels");
  };
  EXPECT_EQ(refused(32, 32), 0U);
  EXPECT_EQ(refused(33, 32), 1U);
  EXPECT_EQ(refused(32, 33), 2U);
}

TEST_F(WindowTask, AFailedModeIsOnlyLoggedAndAnExitEndsVideo) {
  Start("100, 80, 32, 0, 0, Small");
  const CLogCapture log;
  Run("Resize(-1, -1)");
  Run("Resize(70000, 70000)");
  EXPECT_EQ(myTask->GetScreen(), nullptr);
  EXPECT_EQ(log.Count("Error creating the new window"), 2U);
  EXPECT_EQ(SeenAfter("Resize(70, 60)"), "70 x 60 Small");
  myTask->Start();
  EXPECT_EQ(Seen(), "70 x 60 Small") << "a second start changes nothing";
  myTask->Exit();
  Run("Resize(10, 10)");
  EXPECT_FALSE(sdl::HasVideo());
  myTask->Start();
  EXPECT_EQ(Seen(), "640 x 480 SDL Window") << "the defaults";
}

}  // namespace
}  // namespace vask::test
