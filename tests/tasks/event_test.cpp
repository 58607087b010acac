#include <gtest/gtest.h>

#include <string>

#include "events/eventrecorder.h"
#include "gfx/sdl/video.h"
#include "support/tasks.h"
#include "tasks/taskeventsdl.h"
#include "tasks/taskmouse.h"

namespace vask::test {

class CEventTest : public testing::Test {
 protected:
  CEventTest() {
    SDL_Init(SDL_INIT_VIDEO);
    sdl::OpenVideoMode(32, 32, 32, 0);
    myTask.Start();
    myTask.Update();  // the window's own first events
  }
  ~CEventTest() override {
    myTask.Exit();
    SDL_Quit();
  }

  CEventBridge& myBridge = *CEventBridge::GetSingletonPtr();
  CTaskEventSDL myTask;
};

TEST_F(CEventTest, EveryEventReachesItsListeners) {
  // clang-format off
  const std::pair<SDL_Event, const char*> cases[] = {
      {{.active = {SDL_ACTIVEEVENT, 1, SDL_APPINPUTFOCUS}}, "focus 1 0\n"},
      {{.active = {SDL_ACTIVEEVENT, 0, SDL_APPINPUTFOCUS | SDL_APPACTIVE}}, "focus 0 0\n"},
      {{.active = {SDL_ACTIVEEVENT, 1, SDL_APPMOUSEFOCUS | SDL_APPACTIVE}}, ""},
      {{.key = {SDL_KEYDOWN, 0, 0, {0, SDLK_a, KMOD_NONE, 'A'}}}, "down 97 65\n"},
      {{.key = {SDL_KEYUP, 0, 0, {0, SDLK_a, KMOD_NONE, 127}}}, "up 97 127\n"},
      {{.key = {SDL_KEYDOWN, 0, 0, {0, SDLK_F1, KMOD_NONE, 128}}}, "down 282 0\n"},
      {{.motion = {SDL_MOUSEMOTION, 0, 0, 60000, 7, -3, 4}}, "move 60000 7\nby -3 4\n"},
      {{.button = {SDL_MOUSEBUTTONDOWN, 0, 1, 0, 0, 0}}, "press 1 0\n"},
      {{.button = {SDL_MOUSEBUTTONDOWN, 0, 2, 0, 0, 0}}, "press 2 0\n"},
      {{.button = {SDL_MOUSEBUTTONUP, 0, 3, 0, 0, 0}}, "release 4 0\n"},
      {{.button = {SDL_MOUSEBUTTONUP, 0, 5, 0, 0, 0}}, "release 16 0\n"},
      {{.button = {SDL_MOUSEBUTTONUP, 0, 6, 0, 0, 0}}, "release 0 0\n"},
      {{.resize = {SDL_VIDEORESIZE, 70, 50}}, "resize 70 50\n"},
      {{.resize = {SDL_VIDEORESIZE, 70, 50}}, ""},
      {{.expose = {SDL_VIDEOEXPOSE}}, ""}, {{.quit = {SDL_QUIT}}, ""},
  };
  // clang-format on
  std::string record;
  std::string expected;
  const CEventRecorder recorder("", record);
  for (auto [event, heard] : cases) {
    ASSERT_EQ(SDL_PushEvent(&event), 0);
    expected += heard;
  }
  myTask.Update();
  EXPECT_EQ(record, expected);
  EXPECT_EQ(SDL_EnableUNICODE(-1), 1);
  EXPECT_TRUE(IsQuitting());
}

TEST_F(CEventTest, AHeldButtonIsReleasedOnceWhenTheFocusGoes) {
  const SDL_Event press{.button = {SDL_MOUSEBUTTONDOWN, 0, 3, 0, 0, 0}};
  const SDL_Event release{.button = {SDL_MOUSEBUTTONUP, 0, 3, 0, 0, 0}};
  const SDL_Event leave{.active = {SDL_ACTIVEEVENT, 0, SDL_APPINPUTFOCUS}};
  std::string record;
  const CEventRecorder recorder("", record);
  for (SDL_Event event : {press, leave, release, press, release, leave}) {
    ASSERT_EQ(SDL_PushEvent(&event), 0);
  }
  myTask.Update();
  EXPECT_EQ(record, "press 4 0\nrelease 4 0\nfocus 0 0\npress 4 0\nrelease 4 0\nfocus 0 0\n");
}

TEST_F(CEventTest, CursorChangesOnlyToOtherKnownTypes) {
  SDL_Cursor* const initial = SDL_GetCursor();
  for (const int type : {0, -1, 10}) {
    myBridge.ChangeCursor(type);
    EXPECT_EQ(SDL_GetCursor(), initial) << type;
  }
  for (int type = 1; type <= 9; ++type) {
    const SDL_Cursor* previous = SDL_GetCursor();
    myBridge.ChangeCursor(type);
    EXPECT_NE(SDL_GetCursor(), previous);
  }
  myTask.Exit();
  EXPECT_EQ(SDL_GetCursor(), initial);
}

TEST(TaskMouseTest, ConsoleLinesReachTheCursorFromTheStartToTheExit) {
  // clang-format off
  const std::pair<const char*, const char*> cases[] = {
      {"CursorHide( 1, 2 )", "hide"}, {"cursorshow", "show"}, {"CursorChangeTo( cursor_hand )", "type 4"},
      {"CursorChangeTo( cursor_resize_diagonal2 )", "type 9"}, {"CursorChangeTo( Cursor_Hand )", "type 0"},
      {"CursorChangeTo( 4 )", ""}, {"CursorChangeTo", ""}, {"CaptureInput( 2.5 )", "grab"},
      {"CaptureInput( -0.9 )", "release"}, {"CaptureInput( yes )", ""}, {"CaptureInput()", ""},
  };
  // clang-format on
  CNotingHardware hardware;
  CTaskMouse task;
  for (const bool isRunning : {false, true, false, true}) {
    for (const auto& [line, expected] : cases) {
      hardware.last.clear();
      EXPECT_TRUE(task.ExecuteCommand(line));
      EXPECT_EQ(hardware.last, isRunning ? expected : "") << line;
    }
    isRunning ? task.Exit() : static_cast<void>(task.Start());
  }
}

}  // namespace vask::test
