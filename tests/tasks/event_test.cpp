#include "input/keyboard.h"
#include "input/keynames.h"
#include "support/eventrecorder.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "tasks/taskeventsdl.h"
#include "tasks/taskkeyboard.h"
#include "tasks/taskmouse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace vask::test {
namespace {

SDL_Event Focus(Uint8 gain, Uint8 state) { return {.active = {SDL_ACTIVEEVENT, gain, state}}; }
SDL_Event Key(Uint8 type, SDLKey key, Uint16 character = 0, Uint8 scancode = 0) {
  return {.key = {type, 0, 0, {scancode, key, KMOD_NONE, character}}};
}
SDL_Event Button(Uint8 type, Uint8 button) { return {.button = {type, 0, button, 0, 0, 0}}; }

struct EventTask : testing::Test {
  EventTask() {
    EXPECT_TRUE(myTask.Start());
    myTask.Update();  // the window's own first events
    myRecord.clear();
  }

  static void Push(SDL_Event event) { EXPECT_EQ(SDL_PushEvent(&event), 0); }
  // What the bridge tells its listeners of the events, and has told them before.
  std::string Heard(const std::vector<SDL_Event>& events) {
    std::ranges::for_each(events, Push);
    myTask.Update();
    return std::exchange(myRecord, {});
  }

  const CTestScreen myScreen{32, 32};
  CEventBridge& myBridge = *CEventBridge::GetSingletonPtr();
  CTaskEventSDL myTask;
  std::string myRecord;
  CEventRecorder myRecorder{"", myRecord};
};

TEST_F(EventTask, EveryEventReachesItsListeners) {
  const auto focus = SDL_APPINPUTFOCUS, active = SDL_APPACTIVE, mouse = SDL_APPMOUSEFOCUS;
  EXPECT_EQ(Heard({Focus(1, focus), Focus(0, focus | active), Focus(1, mouse | active)}),
            "focus 1 0\nfocus 0 0\n");
  // Of the characters those of ASCII: from 1 to 127.
  EXPECT_EQ(Heard({Key(SDL_KEYDOWN, SDLK_a, 1), Key(SDL_KEYDOWN, SDLK_b, 127)}),
            "down 97 1\ndown 98 127\n");
  EXPECT_EQ(Heard({Key(SDL_KEYUP, SDLK_a, 128)}), "up 97 0\n");
  EXPECT_EQ(Heard({Key(SDL_KEYDOWN, SDLK_QUOTE, 39, 49)}), "down 39 39\n") << "no scancode of X";
  EXPECT_EQ(Heard({{.motion = {SDL_MOUSEMOTION, 0, 0, 60000, 7, -3, 4}}}),
            "move 60000 7\nby -3 4\n");
  constexpr Uint8 kDown = SDL_MOUSEBUTTONDOWN, kUp = SDL_MOUSEBUTTONUP;
  EXPECT_EQ(Heard({Button(kDown, 1), Button(kDown, 2)}), "press 1 0\npress 2 0\n");
  EXPECT_EQ(Heard({Button(kUp, 3), Button(kUp, 4)}), "release 4 0\nrelease 8 0\n");
  EXPECT_EQ(Heard({Button(kUp, 5), Button(kUp, 6)}), "release 16 0\nrelease 0 0\n");
  // The second one has that size already.
  EXPECT_EQ(Heard({{.resize = {SDL_VIDEORESIZE, 70, 50}}, {.resize = {SDL_VIDEORESIZE, 70, 50}}}),
            "resize 70 50\n");
  EXPECT_EQ(Heard({{.resize = {SDL_VIDEORESIZE, 70, 60}}}), "resize 70 60\n");
  EXPECT_EQ(SDL_EnableUNICODE(-1), 1);
}

TEST_F(EventTask, WhatIsHeldIsReleasedOnceHoweverItsReleaseGetsLost) {
  const SDL_Event down = Key(SDL_KEYDOWN, SDLK_RETURN), up = Key(SDL_KEYUP, SDLK_RETURN);
  myBridge.RemoveWindowListener(&myRecorder);
  const auto expectReleases = [&](const char* loss, const auto& lose, const auto& comeBack) {
    SCOPED_TRACE(loss);
    Heard({down, Key(SDL_KEYDOWN, SDLK_UNKNOWN, '^'), Button(SDL_MOUSEBUTTONDOWN, 1)});
    lose();
    EXPECT_EQ(Heard({}), "up 13 0\nrelease 1 0\n");
    comeBack();
    EXPECT_EQ(Heard({up, Button(SDL_MOUSEBUTTONUP, 1)}), "");
    EXPECT_EQ(Heard({down, up}), "down 13 0\nup 13 0\n");
  };
  expectReleases(
      "the focus goes", [] { Push(Focus(0, SDL_APPINPUTFOCUS)); }, [] {});
  expectReleases(
      "the task pauses", [&] { myTask.Pause(); }, [&] { myTask.Resume(); });
  expectReleases(
      "the task ends", [&] { myTask.Exit(); }, [&] { myTask.Start(); });
  expectReleases("video ends", sdl::Quit, [] { SDL_Init(SDL_INIT_VIDEO); });
}

TEST_F(EventTask, AListenerThatPausesItKeepsNoPressFromTheOthers) {
  const CEventRecorder other("other ", myRecord);
  myRecorder.react = [&] { myTask.Pause(); };
  EXPECT_EQ(Heard({Key(SDL_KEYDOWN, SDLK_RETURN), Button(SDL_MOUSEBUTTONDOWN, 3)}),
            "down 13 0\nother down 13 0\nup 13 0\nother up 13 0\n");
}

TEST_F(EventTask, TheCursorChangesOnlyToOtherKnownTypes) {
  Uint8 plane[8] = {};
  SDL_Cursor* const initial = SDL_CreateCursor(plane, plane, 8, 8, 0, 0);
  SDL_SetCursor(initial);
  for (int type = -1; type <= 10; ++type) {
    const SDL_Cursor* const previous = SDL_GetCursor();
    const bool isKnown = type >= 1 && type <= 9;
    myBridge.ChangeCursor(type);
    EXPECT_EQ(SDL_GetCursor() != previous, isKnown) << type;
  }
  myTask.Exit();
  EXPECT_EQ(SDL_GetCursor(), initial);
}

TEST(MouseTask, ConsoleLinesReachTheCursor) {
  CNotingHardware hardware;
  RunScript(R"(
      starttask( mouse, mouse, 10 )
      mouse::CursorChangeTo( cursor_hand )
  )");
  EXPECT_EQ(std::exchange(hardware.last, ""), "hand");
  std::string wanted;
  for (const std::string line :
       {"CursorHide( 1, 2 )", "cursorshow", "CursorChangeTo( Cursor_Hand )", "CursorChangeTo",
        "CaptureInput( 2.5 )", "CaptureInput( -0.9 )", "CaptureInput"}) {
    RunScript("mouse::" + line);
    wanted += std::exchange(hardware.last, "") + ",";
  }
  EXPECT_EQ(wanted, "hide,show,none,,grab,release,,");
  RunScript("stoptask( mouse )");
  RunScript("mouse::CursorHide");
  EXPECT_EQ(hardware.last, "");
}

using Lines = std::vector<std::string>;

// The variable that the bound lines set, after keys have come down, one in each frame.
std::string SetBy(const Lines& lines, const Lines& keys) {
  CKeyboard::DeleteSingleton();
  Execute("v =");
  CTaskKeyboard task;
  EXPECT_TRUE(task.Start());
  for (const std::string& line : lines) {
    task.ExecuteCommand(line);
  }
  for (const std::string& key : keys) {
    CEventBridge::GetSingleton().KeyDown(KeyFromName(key), 0);
    task.Update();
  }
  return Execute("v");
}

TEST(KeyboardTask, BoundLinesRunWhenTheirKeysGoDown) {
  const std::string at9 = "bind(a, v = 9, 9)", at11 = "bind(a, v = 11, 11)";
  EXPECT_EQ(SetBy({at9, "bind(a, v = x)"}, {"a"}), "x");
  EXPECT_EQ(SetBy({"bind(a, v = x, soon)", at11}, {"a"}), "11");
  EXPECT_EQ(SetBy({"bind(\" a, v = x)"}, {"\""}), "") << "one of two keys";
  EXPECT_EQ(SetBy({"bind(\" a, v = x)"}, {"\"", "a"}), "x") << "a quote is a key";
  EXPECT_EQ(SetBy({"bind(\"a b\" c, v = x)"}, {"a", "b", "c"}), "") << "a name with a blank";
  EXPECT_EQ(SetBy({"bind(\"1\", v = x)"}, {"1"}), "x");
  EXPECT_EQ(SetBy({"bind", "bind()", "bind(a)", "bind(a, 5)", "bind(1, v = x)"}, {"a", "1"}), "");
}

}  // namespace
}  // namespace vask::test
