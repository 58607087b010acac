#pragma once

#include "console/consolecommand.h"

#include <list>
#include <map>
#include <memory>
#include <string>

namespace vask {

class CConsole;

// A named set of commands that can be loaded into any number of consoles (not owned). A console
// must be detached before it dies.
class CCmdLib {
 public:
  explicit CCmdLib(std::string name);

  // Owns the command. A name that is taken keeps its old command. Consoles that the library is
  // loaded into are not updated.
  void AddCommand(const std::string& name, std::unique_ptr<CConsoleCommand> command);
  // Registers all commands, in name order; a console that has the library already is detached
  // first.
  void AttachTo(CConsole* console);
  // Removes all commands from the console; does nothing when it does not have the library.
  void Detach(CConsole* console);

 private:
  std::list<CConsole*> myConsoles;
  std::map<std::string, std::unique_ptr<CConsoleCommand>> myCommands;
  std::string myName;
};

}  // namespace vask
