#pragma once

#include "console/console.h"
#include "console/consolecommand.h"
#include "kernel/kernel.h"
#include "kernel/task.h"

#include <string>

namespace vask::test {

// Starts the task with parameters as they stand in a script, and answers what the start answers.
inline bool StartWith(CTask& task, const std::string& params) {
  struct CStart : CConsoleCommand {
    explicit CStart(CTask& t) : task(t) {}
    std::string Execute(CConsoleParams* values) override {
      isRunning = task.Start(values);
      return {};
    }
    std::string Execute() override { return {}; }
    CTask& task;
    bool isRunning = false;
  } command(task);
  CConsole console;
  console.AddCommand("start", &command);
  console.Execute("start(" + params + ")", false);
  return command.isRunning;
}

// Whether somebody has asked the kernel to quit: a run of it lasts one frame then.
inline bool IsQuitting() {
  struct CCounter : CTask {
    void Update() override { ++updates > 1 ? CKernel::GetSingletonPtr()->Quit() : void(); }
    int updates = 0;
  } counter;
  CKernel::GetSingletonPtr()->StartTask(&counter, nullptr);
  CKernel::GetSingletonPtr()->Run();
  CKernel::DeleteSingleton();
  return counter.updates == 1;
}

}  // namespace vask::test
