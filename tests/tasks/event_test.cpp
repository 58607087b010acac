#include "events/eventrecorder.h"
#include "gfx/sdl/video.h"
#include "support/tasks.h"
#include "tasks/taskeventsdl.h"
#include "tasks/taskmouse.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

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

  void Hear(std::vector<SDL_Event> events) {
    for (SDL_Event& event : events) {
      ASSERT_EQ(SDL_PushEvent(&event), 0);
    }
    myTask.Update();
  }

  CEventBridge& myBridge = *CEventBridge::GetSingletonPtr();
  CTaskEventSDL myTask;
};

const SDL_Event kReturnDown{.key = {SDL_KEYDOWN, 0, 0, {36, SDLK_RETURN, KMOD_NONE, 0}}};
const SDL_Event kReturnUp{.key = {SDL_KEYUP, 0, 0, {36, SDLK_RETURN, KMOD_NONE, 0}}};
const SDL_Event kUnknownDown{.key = {SDL_KEYDOWN, 0, 0, {0, SDLK_UNKNOWN, KMOD_NONE, '^'}}};
const SDL_Event kFocusLost{.active = {SDL_ACTIVEEVENT, 0, SDL_APPINPUTFOCUS}};
const SDL_Event kRightDown{.button = {SDL_MOUSEBUTTONDOWN, 0, 3, 0, 0, 0}};
const SDL_Event kRightUp{.button = {SDL_MOUSEBUTTONUP, 0, 3, 0, 0, 0}};

TEST_F(CEventTest, EveryEventReachesItsListeners) {
  // clang-format off
  const std::pair<SDL_Event, const char*> cases[] = {
      {{.active = {SDL_ACTIVEEVENT, 1, SDL_APPINPUTFOCUS}}, "focus 1 0\n"},
      {{.active = {SDL_ACTIVEEVENT, 0, SDL_APPINPUTFOCUS | SDL_APPACTIVE}}, "focus 0 0\n"},
      {{.active = {SDL_ACTIVEEVENT, 1, SDL_APPMOUSEFOCUS | SDL_APPACTIVE}}, ""},
      {{.key = {SDL_KEYDOWN, 0, 0, {0, SDLK_a, KMOD_NONE, 'A'}}}, "down 97 65\n"},
      {{.key = {SDL_KEYUP, 0, 0, {0, SDLK_a, KMOD_NONE, 127}}}, "up 97 127\n"},
      {{.key = {SDL_KEYDOWN, 0, 0, {0, SDLK_F1, KMOD_NONE, 128}}}, "down 282 0\n"},
      {{.key = {SDL_KEYDOWN, 0, 0, {49, SDLK_QUOTE, KMOD_NONE, 39}}}, "down 39 39\n"},  // no key code of X
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

TEST_F(CEventTest, WhatIsHeldIsReleasedOnceHoweverItsReleaseGetsLost) {
  const struct {
    const char* name;
    std::function<void()> lose, comeBack;
  } losses[] = {
      {"the focus goes", [&] { Hear({kFocusLost}); }, [] {}},
      {"the task pauses", [&] { myTask.Pause(); }, [&] { myTask.Resume(); }},
      {"the task ends", [&] { myTask.Exit(); }, [&] { myTask.Start(); }},
      {"video ends", sdl::Quit, [] { SDL_Init(SDL_INIT_VIDEO); }},
      {"video starts anew",
       [] {
         sdl::Quit();
         SDL_Init(SDL_INIT_VIDEO);
       },
       [] {}},
  };
  for (const auto& loss : losses) {
    SCOPED_TRACE(loss.name);
    std::string record;
    CEventRecorder recorder("", record);
    myBridge.RemoveWindowListener(&recorder);
    Hear({kReturnDown, kUnknownDown, kRightDown});
    loss.lose();
    Hear({});
    EXPECT_EQ(record, "down 13 0\ndown 0 94\npress 4 0\nup 13 0\nrelease 4 0\n");
    record.clear();
    loss.comeBack();
    Hear({kReturnUp, kRightUp, kReturnDown, kReturnUp});
    EXPECT_EQ(record, "down 13 0\nup 13 0\n");
  }
}

TEST_F(CEventTest, AListenerThatPausesTheTaskKeepsNoPressFromTheOthers) {
  std::string record;
  CEventRecorder pauser("a ", record);
  const CEventRecorder other("b ", record);
  pauser.react = [&] { myTask.Pause(); };
  Hear({kReturnDown, kRightDown});
  EXPECT_EQ(record, "a down 13 0\nb down 13 0\na up 13 0\nb up 13 0\n");
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
