#include "console/consoleparams.h"
#include "events/eventrecorder.h"
#include "gfx/sdl/video.h"
#include "input/keyboard.h"
#include "input/keynames.h"
#include "support/tasks.h"
#include "tasks/taskeventsdl.h"
#include "tasks/taskkeyboard.h"
#include "tasks/taskmouse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace vask::test {
namespace {

SDL_Event Focus(Uint8 gain, Uint8 state) { return {.active = {SDL_ACTIVEEVENT, gain, state}}; }
SDL_Event Key(Uint8 type, SDLKey key, Uint16 character = 0, Uint8 scancode = 0) {
  return {.key = {type, 0, 0, {scancode, key, KMOD_NONE, character}}};
}
SDL_Event Button(Uint8 type, Uint8 button) { return {.button = {type, 0, button, 0, 0, 0}}; }

struct EventTask : testing::Test {
  EventTask() {
    SDL_Init(SDL_INIT_VIDEO);
    sdl::OpenVideoMode(32, 32, 32, 0);
    EXPECT_TRUE(myTask.Start());
    myTask.Update();  // the window's own first events
    myRecord.clear();
  }
  ~EventTask() override {
    myTask.Exit();
    SDL_Quit();
  }

  static void Push(SDL_Event event) { EXPECT_EQ(SDL_PushEvent(&event), 0); }
  // What the bridge tells its listeners of the events, and has told them before.
  std::string Heard(const std::vector<SDL_Event>& events) {
    std::ranges::for_each(events, Push);
    myTask.Update();
    return std::exchange(myRecord, {});
  }

  CEventBridge& myBridge = *CEventBridge::GetSingletonPtr();
  CTaskEventSDL myTask;
  std::string myRecord;
  CEventRecorder myRecorder{"", myRecord};
};

TEST_F(EventTask, EveryEventReachesItsListeners) {
  const auto focus = SDL_APPINPUTFOCUS, active = SDL_APPACTIVE, mouse = SDL_APPMOUSEFOCUS;
  EXPECT_EQ(Heard({Focus(1, focus), Focus(0, focus | active), Focus(1, mouse | active)}),
            "focus 1 0\nfocus 0 0\n");
  EXPECT_EQ(Heard({Key(SDL_KEYDOWN, SDLK_a, 'A'), Key(SDL_KEYDOWN, SDLK_DELETE, 127)}),
            "down 97 65\ndown 127 127\n");
  EXPECT_EQ(Heard({Key(SDL_KEYDOWN, SDLK_b, 1), Key(SDL_KEYUP, SDLK_a, 128)}),
            "down 98 1\nup 97 0\n");
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
  std::array<Uint8, 8> plane{};
  SDL_Cursor* const initial = SDL_CreateCursor(plane.data(), plane.data(), 8, 8, 0, 0);
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
  EXPECT_EQ(std::exchange(hardware.last, ""), "type 4");
  std::string wanted;
  for (const std::string line :
       {"CursorHide( 1, 2 )", "cursorshow", "CursorChangeTo( Cursor_Hand )", "CursorChangeTo",
        "CaptureInput( 2.5 )", "CaptureInput( -0.9 )", "CaptureInput"}) {
    RunScript("mouse::" + line);
    wanted += std::exchange(hardware.last, "") + ",";
  }
  EXPECT_EQ(wanted, "hide,show,type 0,,grab,release,,");
  RunScript("stoptask( mouse )");
  RunScript("mouse::CursorHide");
  EXPECT_EQ(hardware.last, "");
}

// A command that collects its parameters.
struct CNote : CConsoleCommand {
  CNote() { CApplicationFactory::GetSingletonPtr()->GetConsole()->AddCommand("note", this); }
  ~CNote() override { CApplicationFactory::GetSingletonPtr()->GetConsole()->RemoveCommand("note"); }
  std::string Execute(CConsoleParams* params) override { return notes += params->GetString(0); }
  std::string Execute() override { return {}; }
  std::string notes;
};

using Lines = std::vector<std::string>;

// What is noted when keys come down, one in each frame, bound by these lines alone.
std::string Noted(const Lines& lines, const Lines& keys) {
  CKeyboard::DeleteSingleton();
  const CNote note;
  CTaskKeyboard task;
  EXPECT_TRUE(task.Start());
  for (const std::string& line : lines) {
    task.ExecuteCommand(line);
  }
  for (const std::string& key : keys) {
    CEventBridge::GetSingleton().KeyDown(KeyFromName(key), 0);
    task.Update();
  }
  return note.notes;
}

TEST(KeyboardTask, BoundLinesRunWhenTheirKeysGoDown) {
  const std::string at9 = "bind(a, note(x), 9)", at11 = "bind(a, note(z), 11)";
  EXPECT_EQ(Noted({at9, "bind(a, note(y))", at11, "bind(a, note(w), soon)"}, {"a"}), "xwyz");
  EXPECT_EQ(Noted({"bind(\" a, note(x))"}, {"\"", "a"}), "x") << "a quote is a key";
  EXPECT_EQ(Noted({"bind(\"a b\" c, note(x))"}, {"a", "b", "c"}), "") << "a name with a blank";
  EXPECT_EQ(Noted({"bind(\"1\", note(x))", "bind(1, note(y))"}, {"1"}), "x") << "a number is none";
  EXPECT_EQ(Noted({"bind", "bind()", "bind(a)", "bind(a, 5)"}, {"a"}), "");
}

}  // namespace
}  // namespace vask::test
