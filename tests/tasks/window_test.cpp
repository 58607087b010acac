#include "tasks/taskwindowsdl.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "console/consoleparams.h"
#include "events/eventbridge.h"
#include "gfx/gfx.h"
#include "gfx/sdl/video.h"
#include "kernel/kernel.h"
#include "support/logcapture.h"

namespace vask::test {

namespace {

// A parameter of either kind.
struct SParam {
  SParam(double value) : number(value) {}                   // NOLINT
  SParam(const char* value) : isText(true), text(value) {}  // NOLINT
  double number = 0;
  bool isText = false;
  std::string text;
};

void Fill(CConsoleParams& params, const std::vector<SParam>& values) {
  for (const SParam& value : values) {
    value.isText ? params.AddString(value.text) : params.AddNumber(value.number);
  }
}

std::string Caption() {
  char* title = nullptr;
  SDL_WM_GetCaption(&title, nullptr);
  return title != nullptr ? title : "";
}

void SaveSquare(const char* file, int width, int height) {
  SDL_Surface* picture = SDL_CreateRGBSurface(0, width, height, 24, 0xFF0000, 0xFF00, 0xFF, 0);
  SDL_SaveBMP(picture, file);
  SDL_FreeSurface(picture);
}

class CCountingTask : public CTask {
 public:
  void Update() override { ++updates; }
  int updates = 0;
};

class CWindowTest : public testing::Test {
 protected:
  void SetUp() override { setenv("SDL_VIDEODRIVER", "dummy", 1); }
  void TearDown() override {
    myTask.reset();
    SDL_Quit();
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    CKernel::DeleteSingleton();
  }

  void Start(const std::vector<SParam>& values) {
    CConsoleParams params;
    Fill(params, values);
    EXPECT_FALSE(myTask->Start(&params));
  }
  std::string Run(const std::string& line) { return myTask->GetConsole()->Execute(line, false); }

  // Frames that a run of the kernel lasts, which is 1 once somebody has asked it to quit.
  static int CountFrames() {
    CCountingTask task;
    CKernel::GetSingletonPtr()->StartTask(&task, nullptr);
    CKernel::GetSingletonPtr()->Run();
    return task.updates;
  }

  std::unique_ptr<CTaskWindowSDL> myTask = std::make_unique<CTaskWindowSDL>();
};

}  // namespace

TEST_F(CWindowTest, StartsAsItsParametersSay) {
  struct {
    std::vector<SParam> params;
    int width, height;
    bool isFullscreen;
    std::uint32_t flags;
    const char* caption;
  } const cases[] = {
      {{}, 640, 480, false, SDL_RESIZABLE | SDL_ANYFORMAT, "SDL Window"},
      {{320.9, 200.9}, 320, 200, false, SDL_RESIZABLE | SDL_ANYFORMAT, "SDL Window"},
      {{320.0, 200.0, 32.0, 0.0, 0.0, "Brumble"}, 320, 200, false, 0, "Brumble"},
      {{320.0, 200.0, 0.0, 1.0, 1.0}, 320, 200, true, 0, "SDL Window"},
      {{320.0, 200.0, 16.0, 0.0, 1.0, "", "", 0.0},
       320,
       200,
       false,
       SDL_RESIZABLE | SDL_NOFRAME,
       ""},
      {{"wide", 200.0, "deep", "no", "no", 7.0, 7.0, "no"},
       640,
       200,
       false,
       SDL_RESIZABLE | SDL_ANYFORMAT,
       "SDL Window"},
  };
  for (const auto& c : cases) {
    SDL_Quit();
    myTask = std::make_unique<CTaskWindowSDL>();
    Start(c.params);
    ASSERT_NE(myTask->GetScreen(), nullptr);
    EXPECT_EQ(myTask->GetScreen()->w, c.width);
    EXPECT_EQ(myTask->GetScreen()->h, c.height);
    EXPECT_EQ(myTask->IsFullscreen(), c.isFullscreen);
    EXPECT_EQ(myTask->GetFlags(), c.flags) << c.caption;
    EXPECT_EQ(Caption(), c.caption);
    EXPECT_EQ(Gfx::ScreenBpp(), myTask->GetScreen()->format->BitsPerPixel);
  }
}

TEST_F(CWindowTest, TheStartIsLoggedInOrder) {
  CLogCapture log;
  Start({100.0, 80.0, 32.0, 0.0, 1.0, "", "", 0.0});
  const SDL_version& linked = *SDL_Linked_Version();
  const std::string version = std::to_string(linked.major) + "." + std::to_string(linked.minor) +
                              "." + std::to_string(linked.patch);
  EXPECT_EQ(log.Text(),
            "Initializing video [OK]\n\nCreating new window\n"
            "Compiled with SDL version: 1.2.15\n"
            "Running with SDL version: " +
                version +
                "\n"
                "Using driver: dummy\nUsing resizable ( SDL_RESIZABLE )\n"
                "Using no window frames,\n"
                "  ( oh my god our window doesn't have frames!? ) ( SDL_NOFRAME )\n"
                "Valid resolutions for current flags\nAll resolutions available\n"
                "New window created succesfully\n\n");
}

TEST_F(CWindowTest, AnUnavailableDepthFallsBackToTheDisplaysOwn) {
  CLogCapture log;
  Start({100.0, 80.0, 5.0});
  const std::vector<CLogCapture::SLine> lines(log.Lines().end() - 5, log.Lines().end());
  const std::vector<CLogCapture::SLine> expected = {
      {"Error the screen mode is not available", kLogError},
      {"Resolution: 100 80 @ 5", kLogError},
      {"Flags: 16", kLogError},
      {"Error the screen mode is not available with the bpp 5", kLogError},
      {"Using bpp 0", kLogError}};
  EXPECT_EQ(lines, expected);
  EXPECT_NE(myTask->GetScreen(), nullptr);
}

TEST_F(CWindowTest, Commands) {
  Start({100.0, 80.0, 32.0});
  struct {
    const char* line;
    const char* answer;
    int width, height;
    const char* caption;
  } const cases[] = {
      {"SetName(\"A title\")", "", 100, 80, "A title"},
      {"SetName", "", 100, 80, ""},
      {"SetName()", "", 100, 80, ""},
      {"Resize(120)", "", 120, 80, ""},
      {"Resize(word, 90.9)", "", 120, 90, ""},
      {"Resize", "[ERROR] You should give atleast two parameters", 120, 90, ""},
      {"SetIcon", "[ERROR] You have to give atleast one parameter", 120, 90, ""},
      {"SetIcon()", "[ERROR] You have to give atleast one parameter", 120, 90, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Run(c.line), c.answer) << c.line;
    EXPECT_EQ(SDL_GetVideoSurface()->w, c.width) << c.line;
    EXPECT_EQ(SDL_GetVideoSurface()->h, c.height) << c.line;
    EXPECT_EQ(CEventBridge::GetSingletonPtr()->GetWidth(), c.width) << c.line;
    EXPECT_EQ(Caption(), c.caption) << c.line;
  }
}

TEST_F(CWindowTest, FullscreenComesAndGoesAtTheSameSize) {
  Start({100.0, 80.0, 32.0});
  const std::uint32_t flags = myTask->GetFlags();
  for (const bool isFullscreen : {true, false}) {
    Run("fullscreen");
    EXPECT_EQ(myTask->IsFullscreen(), isFullscreen);
    EXPECT_EQ((SDL_GetVideoSurface()->flags & SDL_FULLSCREEN) != 0, isFullscreen);
    EXPECT_EQ(SDL_GetVideoSurface()->w, 100);
    EXPECT_EQ(myTask->GetFlags(), flags);
  }
}

TEST_F(CWindowTest, IconsOfAtMost32By32) {
  Start({100.0, 80.0, 32.0});
  struct {
    int width, height;
    const char* warning;
  } const cases[] = {{32, 32, nullptr},
                     {33, 32,
                      " CApplicationSDL::WindowSetIcon() Image's (icon.bmp) width is larger "
                      "than 32 pixels "},
                     {32, 33,
                      " CApplicationSDL::WindowSetIcon() Image's (icon.bmp) height is larger "
                      "than 32 pixels "}};
  CLogCapture log;
  for (const auto& c : cases) {
    log.Clear();
    SaveSquare("icon.bmp", c.width, c.height);
    Run("SetIcon(icon.bmp)");
    ASSERT_EQ(log.Lines().size(), c.warning != nullptr ? 1U : 0U) << c.width;
    if (c.warning != nullptr) {
      EXPECT_EQ(log.Lines()[0], (CLogCapture::SLine{c.warning, kLogWarning}));
    }
  }
  log.Clear();
  Run("SetIcon(no_icon.bmp)");
  EXPECT_TRUE(log.Has(" CApplicationSDL::WindowSetIcon() Could not load file: no_icon.bmp"));
}

TEST_F(CWindowTest, WithoutADisplayTheKernelIsAskedToQuitAndNothingCrashes) {
  setenv("SDL_VIDEODRIVER", "no such driver", 1);
  SaveSquare("icon.bmp", 8, 8);
  CLogCapture log;
  testing::internal::CaptureStderr();
  Start({100.0, 80.0, 32.0, 0.0, 1.0, "Dark", "icon.bmp"});
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1);
  EXPECT_TRUE(log.Has(errors.substr(0, errors.find('\n'))));
  for (const char* line : {"Error on initialing video or timer.", " SDL Says:", "Exiting on error ",
                           "Using driver: ", "Error creating the new window"}) {
    EXPECT_TRUE(log.Has(line)) << line;
  }
  EXPECT_EQ(myTask->GetScreen(), nullptr);
  EXPECT_EQ(Run("Resize(50, 50)"), "");
  Run("Fullscreen");
  EXPECT_FALSE(sdl::HasVideo());
  EXPECT_EQ(CountFrames(), 1);
}

TEST_F(CWindowTest, AModeThatFailsLaterIsOnlyLogged) {
  Start({100.0, 80.0, 32.0});
  CLogCapture log;
  Run("Resize(-1, -1)");
  EXPECT_TRUE(log.Has("Error creating the new window"));
  EXPECT_EQ(myTask->GetScreen(), nullptr);
  Run("Resize(70, 60)");
  ASSERT_NE(myTask->GetScreen(), nullptr);
  EXPECT_EQ(myTask->GetScreen()->w, 70);
}

TEST_F(CWindowTest, HooksAreSafeInAnyOrder) {
  myTask->Exit();
  EXPECT_TRUE(myTask->ExecuteCommand("Fullscreen"));
  EXPECT_FALSE(myTask->Start());
  SDL_Surface* screen = myTask->GetScreen();
  ASSERT_NE(screen, nullptr);
  EXPECT_FALSE(myTask->Start());
  EXPECT_EQ(myTask->GetScreen(), screen);
  myTask->Exit();
  myTask->Exit();
  EXPECT_FALSE(sdl::HasVideo());
  myTask->ExecuteCommand("Resize(10, 10)");
  EXPECT_FALSE(sdl::HasVideo());
  EXPECT_FALSE(myTask->Start());
  EXPECT_NE(myTask->GetScreen(), nullptr);
  myTask.reset();
  CEventBridge::GetSingletonPtr()->Resize(20, 20);
  EXPECT_EQ(SDL_GetVideoSurface()->w, 640);
}

}  // namespace vask::test
