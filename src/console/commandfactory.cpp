#include "console/commandfactory.h"

#include <utility>

namespace vask {

void CCommandFactory::AddCommand(const std::string& lib, const std::string& name,
                                 std::unique_ptr<CConsoleCommand> command) {
  std::unique_ptr<CCmdLib>& library = myLibs[lib];
  if (library == nullptr) {
    library = std::make_unique<CCmdLib>(lib);
  }
  library->AddCommand(name, std::move(command));
}

void CCommandFactory::LoadLib(const std::string& lib, CConsole* console) {
  const auto found = myLibs.find(lib);
  if (found != myLibs.end()) {
    found->second->AttachTo(console);
  }
}

void CCommandFactory::Forget(CConsole* console) {
  for (const auto& [name, library] : myLibs) {
    library->Detach(console);
  }
}

}  // namespace vask
