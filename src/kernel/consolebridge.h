#pragma once

#include "console/console.h"

namespace vask {

// A console that reaches the tasks (the namespace of a line is a task's name) and can echo what it
// executes into the log.
class CConsoleBridge : public CConsole {
 public:
  ~CConsoleBridge() override;
  // With `echo` the line and its result are written to the log.
  std::string Execute(const std::string& line, bool echo) override;
  std::string ExecuteInNamespace(const std::string& space, const std::string& command) override;

  // The application console, for the commands that work on it whatever console they are called in.
  static CConsole& Application();
  // Loads the libraries of CConsoleLibraryRegistrar into the console.
  static void LoadLibraries(CConsole* console);
};

// Enters a command library that each application console has. For static initialisers.
// `addCommands` adds the commands to the CCommandFactory; it is called once, before the first load.
class CConsoleLibraryRegistrar {
 public:
  CConsoleLibraryRegistrar(const char* library, void (*addCommands)());
};

}  // namespace vask
