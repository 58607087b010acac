#pragma once

#include "console/cmdlib.h"
#include "designpatterns/singleton.h"

#include <map>
#include <memory>
#include <string>

namespace vask {

// The registry of command libraries by name (case counts).
class CCommandFactory : public CStaticSingleton<CCommandFactory> {
 public:
  // Adds the command to the library of that name, which is made when there is none.
  void AddCommand(const std::string& lib, const std::string& name,
                  std::unique_ptr<CConsoleCommand> command);
  // Attaches the library to the console; an unknown name does nothing.
  void LoadLib(const std::string& lib, CConsole* console);
  // Detaches every library from a console that is about to die.
  void Forget(CConsole* console);

 private:
  std::map<std::string, std::unique_ptr<CCmdLib>> myLibs;
};

}  // namespace vask
