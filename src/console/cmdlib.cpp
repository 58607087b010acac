#include "console/cmdlib.h"

#include "console/console.h"

#include <algorithm>
#include <utility>

namespace vask {

CCmdLib::CCmdLib(std::string name) : myName(std::move(name)) {}

void CCmdLib::AddCommand(const std::string& name, std::unique_ptr<CConsoleCommand> command) {
  myCommands.try_emplace(name, std::move(command));
}

void CCmdLib::AttachTo(CConsole* console) {
  Detach(console);
  myConsoles.push_back(console);
  for (const auto& [name, command] : myCommands) {
    console->AddCommand(name, command.get());
  }
}

void CCmdLib::Detach(CConsole* console) {
  const auto found = std::find(myConsoles.begin(), myConsoles.end(), console);
  if (found == myConsoles.end()) {
    return;
  }
  for (const auto& [name, command] : myCommands) {
    console->RemoveCommand(name);
  }
  myConsoles.erase(found);
}

}  // namespace vask
