#pragma once

#include "console/consolecommand.h"

#include <array>
#include <string>

namespace vask {

class CTaskDebug;

// A command of the debug tasks. There is one of each kind for the process, entered in the consoles
// of all debug tasks: each task takes them for itself before it executes a line. Without a task
// they do nothing to it.
class CDebugCommand : public CConsoleCommand {
 public:
  // Not owned.
  void SetTask(CTaskDebug* task) { myTask = task; }
  // Nothing when another task has taken the command meanwhile.
  void ForgetTask(const CTaskDebug* task);

 protected:
  CTaskDebug* GetTask() const { return myTask; }

 private:
  CTaskDebug* myTask = nullptr;
};

// Opens the console window, or closes it.
class CConsoleCmdToggleConsole : public CDebugCommand {
 public:
  using CConsoleCommand::Execute;
  std::string Execute() override;
};

// Takes a number: 0 lets failed assertions speak, any other silences them.
class CConsoleCmdBanAsserts : public CDebugCommand {
 public:
  std::string Execute(CConsoleParams* params) override;
  // Logs how to use the command; so do the two below.
  std::string Execute() override;
};

// Takes the file that the mouse is recorded to.
class CConsoleCmdRecordInput : public CDebugCommand {
 public:
  std::string Execute(CConsoleParams* params) override;
  std::string Execute() override;
};

// Takes the file that is played back.
class CConsoleCmdPlaybackInput : public CDebugCommand {
 public:
  std::string Execute(CConsoleParams* params) override;
  std::string Execute() override;
};

struct SDebugCommand {
  const char* name;
  CDebugCommand* command;  // lives to the end of the process
};

// The one of each kind.
const std::array<SDebugCommand, 4>& GetDebugCommands();

}  // namespace vask
