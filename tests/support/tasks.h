#pragma once

#include "console/console.h"
#include "console/consolecommand.h"
#include "kernel/applicationfactory.h"
#include "kernel/task.h"

#include <sstream>
#include <string>

namespace vask::test {

// Starts the task with parameters as they stand in a script, and returns what the start returns.
inline bool StartWith(CTask& task, const std::string& params) {
  struct CStart : CConsoleCommand {
    std::string Execute(CConsoleParams* values) override {
      return task->Start(values) ? "running" : "done";
    }
    std::string Execute() override { return {}; }
    CTask* task = nullptr;
  } command;
  command.task = &task;
  CConsole console;
  console.AddCommand("start", &command);
  return console.Execute("start(" + params + ")", false) == "running";
}

// The result of the line in the application console.
inline std::string Execute(const std::string& line) {
  return CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(line, false);
}

// Executes each line of a script there.
inline void RunScript(const std::string& lines) {
  std::istringstream script(lines);
  for (std::string line; std::getline(script >> std::ws, line);) {
    Execute(line);
  }
}

}  // namespace vask::test
