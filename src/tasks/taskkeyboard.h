#pragma once

#include "console/console.h"
#include "console/consolecommand.h"
#include "kernel/task.h"

#include <memory>
#include <string>

namespace vask {

// Triggers what keys are bound to, and has the command "bind", which binds a key, or several that
// are held together, to a line of the application console. A line must not contain a comma, "::",
// ";" or "//": put such lines into a script, and load that. Task type "keyboard".
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
