#include "events/eventbridge.h"
#include "gfx/sdl/video.h"
#include "support/tasks.h"
#include "tasks/taskwindowsdl.h"

#include <gtest/gtest.h>

#include <memory>

namespace vask::test {

// What there is to see.
static std::string Seen() {
  char* title = nullptr;
  SDL_WM_GetCaption(&title, nullptr);
  const SDL_Surface& screen = *SDL_GetVideoSurface();
  return std::to_string(screen.w) + " x " + std::to_string(screen.h) +
         ((screen.flags & SDL_FULLSCREEN) != 0 ? " full " : " ") + (title != nullptr ? title : "");
}

class CWindowTest : public testing::Test {
 protected:
  void TearDown() override {
    myTask.reset();
    SDL_Quit();
  }
  void Start(const std::string& params) { EXPECT_FALSE(StartWith(*myTask, params)); }
  std::string Run(const std::string& line) { return myTask->GetConsole()->Execute(line, false); }

  std::unique_ptr<CTaskWindowSDL> myTask = std::make_unique<CTaskWindowSDL>();
};

// clang-format off
TEST_F(CWindowTest, StartsAsItsParametersSay) {
  const std::uint32_t usual = SDL_RESIZABLE | SDL_ANYFORMAT;
  const struct { const char* params; const char* seen; std::uint32_t flags; } cases[] = {
      // First: the compatibility library keeps a title beyond SDL_Quit.
      {"320, 200, 16, 0, 1, \"\", \"\", 0", "320 x 200 ", SDL_RESIZABLE | SDL_NOFRAME},
      {"", "640 x 480 SDL Window", usual}, {"320.9, 200.9", "320 x 200 SDL Window", usual},
      {"320, 200, 32, 0, 0, Brumble", "320 x 200 Brumble", 0},
      {"320, 200, 0, 1, 1", "320 x 200 full SDL Window", 0},
      {"wide, 200, deep, no, no, 7, 7, no", "640 x 200 SDL Window", usual},
  };
  for (const auto& c : cases) {
    SDL_Quit();
    myTask = std::make_unique<CTaskWindowSDL>();
    Start(c.params);
    EXPECT_EQ(Seen(), c.seen);
    EXPECT_EQ(myTask->GetFlags(), c.flags) << c.params;
  }
}

TEST_F(CWindowTest, Commands) {
  Start("100, 80, 32");
  const struct { const char* line; const char* answer; const char* seen; } cases[] = {
      {"SetName(\"A title\")", "", "100 x 80 A title"}, {"SetName", "", "100 x 80 "},
      {"Resize(120)", "", "120 x 80 "}, {"Resize(word, 90.9)", "", "120 x 90 "},
      {"Resize", "[ERROR] You should give atleast two parameters", "120 x 90 "},
      {"SetIcon", "[ERROR] You have to give atleast one parameter", "120 x 90 "},
      {"Fullscreen", "", "120 x 90 full "}, {"fullscreen", "", "120 x 90 "},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Run(c.line), c.answer) << c.line;
    EXPECT_EQ(Seen(), c.seen) << c.line;
    EXPECT_EQ(CEventBridge::GetSingletonPtr()->GetWidth(), SDL_GetVideoSurface()->w) << c.line;
  }
}
// clang-format on

TEST_F(CWindowTest, HooksAreSafeInAnyOrderAndAFailedModeIsOnlyLogged) {
  EXPECT_TRUE(myTask->ExecuteCommand("Fullscreen"));
  Start("100, 80, 32, 0, 0, Small");
  for (const char* line : {"Resize(-1, -1)", "Resize(70000, 70000)"}) {
    Run(line);
    EXPECT_EQ(myTask->GetScreen(), nullptr);
    EXPECT_EQ(sdl::GetVideoSurface(), nullptr);
  }
  Run("Resize(70, 60)");
  EXPECT_NE(myTask->GetScreen(), nullptr);
  myTask->Exit();
  myTask->Exit();
  Run("Resize(10, 10)");
  EXPECT_FALSE(sdl::HasVideo());
  myTask->Start();
  EXPECT_EQ(Seen(), "640 x 480 SDL Window") << "the defaults";
}

}  // namespace vask::test
