#pragma once

#include "console/console.h"
#include "console/consolecommand.h"
#include "kernel/task.h"

#include <memory>
#include <string>

namespace vask {

// Hands the keys on to what they are bound to, and gives the console its command "bind", which
// binds a key, or several that are held together, to a line of the application console. A line may
// hold no comma, "::", ";" or "//": what needs them stands in a script that the line loads. Task
// type "keyboard".
//
//   starttask( keyboard, keyboard, 20 )
//   keyboard::bind( escape, quit )
//   keyboard::bind( left_ctrl q, quit, 5 )
class CTaskKeyboard : public CTask {
 public:
  using CTask::Start;
  bool Start() override;
  void Update() override;
  bool ExecuteCommand(const std::string& line) override;

 private:
  class CCommandBind : public CConsoleCommand {
   public:
    // The keys, the line and, if wanted, the priority.
    std::string Execute(CConsoleParams* params) override;
    std::string Execute() override;
  };

  std::unique_ptr<CConsole> myCommands;
  CCommandBind myCommandBind;
};

}  // namespace vask
