#include "kernel/consolebridge.h"

#include "console/commandfactory.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "utils/log/log.h"

#include <utility>
#include <vector>

namespace vask {
namespace {

struct SLibrary {
  const char* name;
  void (*addCommands)();
  bool isAdded = false;
};

std::vector<SLibrary>& Libraries() {
  static auto& libraries = *new std::vector<SLibrary>;
  return libraries;
}

}  // namespace

CConsoleBridge::~CConsoleBridge() = default;

std::string CConsoleBridge::Execute(const std::string& line, bool echo) {
  if (!echo) {
    return CConsole::Execute(line, false);
  }
  Log().Write(line + "\n");
  std::string result = CConsole::Execute(line, false);
  if (!result.empty()) {
    Log().Write(result + "\n");
  }
  return result;
}

std::string CConsoleBridge::ExecuteInNamespace(const std::string& space,
                                               const std::string& command) {
  const bool taken = CTaskFactory::GetSingletonPtr()->SendCommand(space, command);
  return taken ? std::string() : "No namespace named space\n";
}

CConsole& CConsoleBridge::Application() {
  return *CApplicationFactory::GetSingletonPtr()->GetConsole();
}

void CConsoleBridge::LoadLibraries(CConsole* console) {
  for (SLibrary& library : Libraries()) {
    if (!std::exchange(library.isAdded, true)) {
      library.addCommands();
    }
    CCommandFactory::GetSingletonPtr()->LoadLib(library.name, console);
  }
}

CConsoleLibraryRegistrar::CConsoleLibraryRegistrar(const char* library, void (*addCommands)()) {
  Libraries().push_back({library, addCommands});
}

}  // namespace vask
