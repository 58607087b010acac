#include "kernel/consolebridge.h"

#include "kernel/taskfactory.h"
#include "utils/log/log.h"

namespace vask {

CConsoleBridge::~CConsoleBridge() = default;

std::string CConsoleBridge::Execute(const std::string& line, bool echo) {
  if (!echo) {
    return CConsole::Execute(line, false);
  }
  CLog::GetSingletonPtr()->Write(line + "\n");
  std::string result = CConsole::Execute(line, false);
  if (!result.empty()) {
    CLog::GetSingletonPtr()->Write(result + "\n");
  }
  return result;
}

std::string CConsoleBridge::ExecuteInNamespace(const std::string& space,
                                               const std::string& command) {
  const bool taken = CTaskFactory::GetSingletonPtr()->SendCommand(space, command);
  return taken ? std::string() : "No namespace named space\n";
}

}  // namespace vask
