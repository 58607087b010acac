#pragma once

#include "console/console.h"
#include "designpatterns/singleton.h"

#include <memory>

namespace vask {

class CLog;

// Gives access to what the whole application shares: its console and its log.
class CApplicationFactory : public CStaticSingleton<CApplicationFactory> {
 public:
  template <typename Base>
  class CTemplateMaker {
   public:
    virtual ~CTemplateMaker() = default;
    virtual Base* Create() = 0;
  };

  template <typename T>
  class CConsoleMaker : public CTemplateMaker<CConsole> {
   public:
    CConsole* Create() override { return new T; }
  };

  CApplicationFactory();
  // Deletes the application console, then the log.
  ~CApplicationFactory();
  CApplicationFactory(const CApplicationFactory&) = delete;
  CApplicationFactory& operator=(const CApplicationFactory&) = delete;

  // The application console; the first call makes it and loads the libraries of
  // CConsoleLibraryRegistrar ("basic" and "extra") into it.
  CConsole* GetConsole();
  // The application console, or null while it has not been made.
  CConsole* PeekConsole() const { return myConsole.get(); }
  // A fresh console for a task's own commands, owned by the caller.
  CConsole* NewConsole();
  CLog* GetLog();

 private:
  std::unique_ptr<CConsole> myConsole;
  std::unique_ptr<CTemplateMaker<CConsole>> myConsoleMaker;
};

// Enters a variable of the program into each application console that is made, before anything is
// executed in it. For static initialisers; the variable must live to the end of the program.
class CConsoleVariableRegistrar {
 public:
  CConsoleVariableRegistrar(const char* name, int& variable);
};

}  // namespace vask
