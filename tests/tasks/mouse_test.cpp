#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "events/eventbridge.h"
#include "tasks/taskmouse.h"

namespace vask::test {

namespace {

// Stands in for the cursor of the screen, and notes what is asked of it.
class CNotingHardware : public IMouseHardware {
 public:
  CNotingHardware() { CEventBridge::GetSingletonPtr()->SetMouseHardware(this); }
  ~CNotingHardware() override { CEventBridge::GetSingletonPtr()->ClearMouseHardware(); }
  void ShowCursor() override { last = "show"; }
  void HideCursor() override { last = "hide"; }
  void ChangeCursor(int type) override { last = "type " + std::to_string(type); }
  void GrabInput(bool on) override { last = on ? "grab" : "release"; }

  std::string last;
};

}  // namespace

TEST(TaskMouseTest, ConsoleLinesReachTheCursorFromTheStartToTheExit) {
  const std::pair<const char*, const char*> cases[] = {
      {"CursorHide", "hide"},
      {"CursorHide( 1, 2 )", "hide"},
      {"cursorshow", "show"},
      {"CursorChangeTo( cursor_hand )", "type 4"},
      {"CursorChangeTo( cursor_resize_diagonal2 )", "type 9"},
      {"CursorChangeTo( Cursor_Hand )", "type 0"},
      {"CursorChangeTo( 4 )", ""},
      {"CursorChangeTo", ""},
      {"CaptureInput( 2.5 )", "grab"},
      {"CaptureInput( -0.9 )", "release"},
      {"CaptureInput( 99999999999 )", "grab"},
      {"CaptureInput( yes )", ""},
      {"CaptureInput()", ""},
  };
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
