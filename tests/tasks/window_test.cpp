#include "tasks/taskwindowsdl.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "events/eventbridge.h"
#include "gfx/gfx.h"
#include "gfx/sdl/surface.h"
#include "gfx/sdl/video.h"
#include "support/logcapture.h"
#include "support/tasks.h"

namespace vask::test {

namespace {

constexpr std::uint32_t kResizable = SDL_RESIZABLE;
constexpr std::uint32_t kUsual = SDL_RESIZABLE | SDL_ANYFORMAT;

// What there is to see.
std::string Seen() {
  char* title = nullptr;
  SDL_WM_GetCaption(&title, nullptr);
  const SDL_Surface& screen = *SDL_GetVideoSurface();
  return std::to_string(screen.w) + " x " + std::to_string(screen.h) +
         ((screen.flags & SDL_FULLSCREEN) != 0 ? " full " : " ") + (title != nullptr ? title : "");
}

void SaveSquare(const char* file, int width, int height) {
  const sdl::SurfacePtr square = sdl::NewSurface(width, height, sdl::AlphaFormat());
  SDL_SaveBMP(square.get(), file);
}

class CWindowTest : public testing::Test {
 protected:
  void TearDown() override {
    myTask.reset();
    SDL_Quit();
    setenv("SDL_VIDEODRIVER", "dummy", 1);
  }
  void Start(const std::string& params) { EXPECT_FALSE(StartWith(*myTask, params)); }
  std::string Run(const std::string& line) { return myTask->GetConsole()->Execute(line, false); }

  std::unique_ptr<CTaskWindowSDL> myTask = std::make_unique<CTaskWindowSDL>();
};

}  // namespace

TEST_F(CWindowTest, StartsAsItsParametersSay) {
  struct {
    const char* params;
    const char* seen;
    std::uint32_t flags;
  } const cases[] = {
      {"", "640 x 480 SDL Window", kUsual},
      {"320.9, 200.9", "320 x 200 SDL Window", kUsual},
      {"320, 200, 32, 0, 0, Brumble", "320 x 200 Brumble", 0},
      {"320, 200, 0, 1, 1", "320 x 200 full SDL Window", 0},
      {"320, 200, 16, 0, 1, \"\", \"\", 0", "320 x 200 ", kResizable | SDL_NOFRAME},
      {"wide, 200, deep, no, no, 7, 7, no", "640 x 200 SDL Window", kUsual},
  };
  for (const auto& c : cases) {
    SDL_Quit();
    myTask = std::make_unique<CTaskWindowSDL>();
    Start(c.params);
    ASSERT_NE(myTask->GetScreen(), nullptr);
    EXPECT_EQ(Seen(), c.seen);
    EXPECT_EQ(myTask->GetFlags(), c.flags) << c.params;
    EXPECT_EQ(Gfx::ScreenBpp(), myTask->GetScreen()->format->BitsPerPixel);
  }
}

TEST_F(CWindowTest, TheStartIsLoggedInOrder) {
  CLogCapture log;
  Start("100, 80, 5, 0, 1, \"\", \"\", 0");
  const SDL_version& linked = *SDL_Linked_Version();
  const std::string version = std::to_string(linked.major) + "." + std::to_string(linked.minor) +
                              "." + std::to_string(linked.patch);
  EXPECT_EQ(log.Text(),
            "Initializing video [OK]\n\nCreating new window\nCompiled with SDL version: 1.2.15\n"
            "Running with SDL version: " +
                version +
                "\nUsing driver: dummy\nUsing resizable ( SDL_RESIZABLE )\n"
                "Using no window frames,\n"
                "  ( oh my god our window doesn't have frames!? ) ( SDL_NOFRAME )\n"
                "Valid resolutions for current flags\nAll resolutions available\n"
                "New window created succesfully\n\n"
                "Error the screen mode is not available\nResolution: 100, 80 @ 5\nFlags: 48\n"
                "Error the screen mode is not available with the bpp 5\nUsing bpp 0\n");
  EXPECT_EQ(log.Lines().back().level, kLogError);
  EXPECT_NE(myTask->GetScreen(), nullptr);
}

TEST_F(CWindowTest, Commands) {
  Start("100, 80, 32");
  struct {
    const char* line;
    const char* answer;
    const char* seen;
  } const cases[] = {
      {"SetName(\"A title\")", "", "100 x 80 A title"},
      {"SetName", "", "100 x 80 "},
      {"Resize(120)", "", "120 x 80 "},
      {"Resize(word, 90.9)", "", "120 x 90 "},
      {"Resize", "[ERROR] You should give atleast two parameters", "120 x 90 "},
      {"SetIcon", "[ERROR] You have to give atleast one parameter", "120 x 90 "},
      {"Fullscreen", "", "120 x 90 full "},
      {"fullscreen", "", "120 x 90 "},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Run(c.line), c.answer) << c.line;
    EXPECT_EQ(Seen(), c.seen) << c.line;
    EXPECT_EQ(CEventBridge::GetSingletonPtr()->GetWidth(), SDL_GetVideoSurface()->w) << c.line;
  }
  EXPECT_EQ(myTask->GetFlags(), kResizable);
}

TEST_F(CWindowTest, IconsOfAtMost32By32) {
  Start("100, 80, 32");
  CLogCapture log;
  for (const auto& [width, height] : {std::pair(32, 32), {33, 32}, {32, 33}}) {
    SaveSquare("icon.bmp", width, height);
    Run("SetIcon(icon.bmp)");
  }
  Run("SetIcon(no_icon.bmp)");
  const std::string operation = " CApplicationSDL::WindowSetIcon() ";
  EXPECT_EQ(log.Text(), operation + "Image's (icon.bmp) width is larger than 32 pixels \n" +
                            operation + "Image's (icon.bmp) height is larger than 32 pixels \n" +
                            operation + "Could not load file: no_icon.bmp\n");
}

TEST_F(CWindowTest, WithoutADisplayTheKernelIsAskedToQuitAndNothingCrashes) {
  setenv("DISPLAY", ":no_such_display", 1);
  unsetenv("SDL_VIDEODRIVER");
  SaveSquare("icon.bmp", 8, 8);
  CLogCapture log;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Start("100, 80, 32, 0, 1, Dark, icon.bmp");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1);
  EXPECT_TRUE(log.Has(errors.substr(0, errors.find('\n'))));
  for (const char* line : {"Error on initialing video or timer.", " SDL Says:", "Exiting on error ",
                           "Using driver: ", "Error creating the new window"}) {
    EXPECT_TRUE(log.Has(line)) << line;
  }
  Run("Resize(50, 50)");
  Run("Fullscreen");
  EXPECT_EQ(myTask->GetScreen(), nullptr);
  EXPECT_FALSE(sdl::HasVideo());
  EXPECT_TRUE(IsQuitting());
}

TEST_F(CWindowTest, HooksAreSafeInAnyOrderAndAFailedModeIsOnlyLogged) {
  myTask->Exit();
  EXPECT_TRUE(myTask->ExecuteCommand("Fullscreen"));
  Start("100, 80, 32, 0, 0, Small");
  SDL_Surface* screen = myTask->GetScreen();
  EXPECT_FALSE(myTask->Start());
  EXPECT_EQ(myTask->GetScreen(), screen);
  for (const char* line : {"Resize(-1, -1)", "Resize(70000, 70000)"}) {
    Run(line);
    EXPECT_EQ(myTask->GetScreen(), nullptr);
    EXPECT_EQ(sdl::GetVideoSurface(), nullptr);
  }
  Run("Resize(70, 60)");
  ASSERT_NE(myTask->GetScreen(), nullptr);
  myTask->Exit();
  myTask->Exit();
  myTask->ExecuteCommand("Resize(10, 10)");
  EXPECT_FALSE(sdl::HasVideo());
  myTask->Start();
  EXPECT_EQ(Seen(), "640 x 480 SDL Window") << "the defaults";
  myTask.reset();
  CEventBridge::GetSingletonPtr()->Resize(20, 20);
  EXPECT_EQ(SDL_GetVideoSurface()->w, 640);
}

}  // namespace vask::test
