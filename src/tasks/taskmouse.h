#pragma once

#include "kernel/task.h"

#include <memory>
#include <string>

namespace vask {

class CConsole;
class CConsoleCommand;

// Has the commands of the mouse cursor and the input grab: "CursorHide", "CursorShow",
// "CursorChangeTo" and "CaptureInput". Task type "mouse".
//
//     starttask( mouse, mouse, 10 )
//     mouse::CursorChangeTo( cursor_hand )
class CTaskMouse : public CTask {
 public:
  CTaskMouse();
  ~CTaskMouse() override;

  using CTask::Start;
  bool Start() override;
  void Update() override {}
  void Exit() override;
  bool ExecuteCommand(const std::string& line) override;

 private:
  std::unique_ptr<CConsole> myCommands;
  std::unique_ptr<CConsoleCommand> myCursorHide;
  std::unique_ptr<CConsoleCommand> myCursorShow;
  std::unique_ptr<CConsoleCommand> myCursorChangeTo;
  std::unique_ptr<CConsoleCommand> myCaptureInput;
};

}  // namespace vask
