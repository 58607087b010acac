#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/console.h"
#include "events/eventbridge.h"
#include "input/cursornames.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "tasks/taskmouse.h"

namespace vask {
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

TEST(TaskMouseTest, ConsoleLinesReachTheCursor) {
  CNotingHardware hardware;
  CTaskFactory* tasks = CTaskFactory::GetSingletonPtr();
  ASSERT_TRUE(tasks->StartTask("mouse", "cursor task", 10, nullptr));
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"CursorHide", "hide"},
      {"CursorHide( 1, 2 )", "hide"},
      {"cursorshow", "show"},
      {"CursorChangeTo( cursor_hand )", "type 4"},
      {"CursorChangeTo( cursor_none )", "type 0"},
      {"CursorChangeTo( cursor_resize_diagonal2 )", "type 9"},
      {"CursorChangeTo( Cursor_Hand )", "type 0"},
      {"CursorChangeTo( 4 )", ""},
      {"CursorChangeTo()", ""},
      {"CursorChangeTo", ""},
      {"CaptureInput( 1 )", "grab"},
      {"CaptureInput( 2.5 )", "grab"},
      {"CaptureInput( 0 )", "release"},
      {"CaptureInput( 0.9 )", "release"},
      {"CaptureInput( -0.9 )", "release"},
      {"CaptureInput( 99999999999 )", "grab"},
      {"CaptureInput( yes )", ""},
      {"CaptureInput", ""},
  };
  CConsole* console = CApplicationFactory::GetSingletonPtr()->GetConsole();
  for (const auto& [line, expected] : cases) {
    hardware.last.clear();
    console->Execute("cursor task::" + line, false);
    EXPECT_EQ(hardware.last, expected) << line;
  }
}

TEST(TaskMouseTest, LinesBeforeTheStartAndAfterTheExitAreAcceptedAndIgnored) {
  CNotingHardware hardware;
  CTaskMouse task;
  EXPECT_TRUE(task.ExecuteCommand("CursorHide"));
  task.Exit();
  EXPECT_TRUE(task.Start());
  task.Exit();
  task.Exit();
  EXPECT_TRUE(task.ExecuteCommand("CursorHide"));
  EXPECT_EQ(hardware.last, "");
  EXPECT_TRUE(task.Start());
  EXPECT_TRUE(task.ExecuteCommand("CursorHide"));
  EXPECT_EQ(hardware.last, "hide");
}

}  // namespace
}  // namespace vask
