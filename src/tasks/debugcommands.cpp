#include "tasks/debugcommands.h"

#include "console/consoleparams.h"
#include "tasks/taskdebug.h"
#include "utils/assert.h"
#include "utils/log/log.h"

namespace vask {
namespace {

std::string Complain(const char* usage) {
  CLog::GetSingletonPtr()->Error() << usage << "\n";
  return {};
}

}  // namespace

void CDebugCommand::ForgetTask(const CTaskDebug* task) {
  if (myTask == task) {
    myTask = nullptr;
  }
}

std::string CConsoleCmdToggleConsole::Execute() {
  if (GetTask() != nullptr) {
    GetTask()->ToggleConsole();
  }
  return {};
}

std::string CConsoleCmdBanAsserts::Execute(CConsoleParams* params) {
  if (!params->Has(0, CVariable::kNumber)) {
    return Execute();
  }
  BanAsserts(ToInteger(params->GetNumber(0)) != 0);
  return {};
}

std::string CConsoleCmdBanAsserts::Execute() {
  return Complain(
      "BanAsserts - command, need atleast on parameter. 1 = ban assert dialog box, 0 = allow "
      "assert dialog box.");
}

std::string CConsoleCmdRecordInput::Execute(CConsoleParams* params) {
  if (!params->Has(0, CVariable::kString)) {
    return Execute();
  }
  if (GetTask() != nullptr) {
    GetTask()->RecordInput(params->GetString(0));
  }
  return {};
}

std::string CConsoleCmdRecordInput::Execute() {
  return Complain(
      "RecordInput -command, requires atleast one parameter, the file recording is saved to.");
}

std::string CConsoleCmdPlaybackInput::Execute(CConsoleParams* params) {
  if (!params->Has(0, CVariable::kString)) {
    return Execute();
  }
  if (GetTask() != nullptr) {
    GetTask()->PlaybackInput(params->GetString(0));
  }
  return {};
}

std::string CConsoleCmdPlaybackInput::Execute() {
  return Complain(
      "PlaybackInput -command, requires atleast one parameter, the file recording is saved to.");
}

// Never destroyed: consoles of tasks that die at the end of the process still hold them.
const std::array<SDebugCommand, 4>& GetDebugCommands() {
  static const auto& commands = *new std::array<SDebugCommand, 4>{{
      {"ToggleConsole", new CConsoleCmdToggleConsole},
      {"BanAsserts", new CConsoleCmdBanAsserts},
      {"RecordInput", new CConsoleCmdRecordInput},
      {"PlaybackInput", new CConsoleCmdPlaybackInput},
  }};
  return commands;
}

}  // namespace vask
