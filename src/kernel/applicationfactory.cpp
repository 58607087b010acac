#include "kernel/applicationfactory.h"

#include "kernel/consolebridge.h"
#include "utils/log/log.h"

#include <utility>
#include <vector>

namespace vask {
namespace {

std::vector<std::pair<const char*, int*>>& ProgramVariables() {
  static auto& variables = *new std::vector<std::pair<const char*, int*>>;
  return variables;
}

}  // namespace

CConsoleVariableRegistrar::CConsoleVariableRegistrar(const char* name, int& variable) {
  ProgramVariables().emplace_back(name, &variable);
}

CApplicationFactory::CApplicationFactory()
    : myConsoleMaker(std::make_unique<CConsoleMaker<CConsoleBridge>>()) {}

CApplicationFactory::~CApplicationFactory() {
  myConsoleMaker.reset();
  myConsole.reset();
  CLog::DeleteSingleton();
}

CConsole* CApplicationFactory::GetConsole() {
  if (myConsole == nullptr) {
    myConsole.reset(NewConsole());
    CConsoleBridge::LoadLibraries(myConsole.get());
    for (const auto& [name, variable] : ProgramVariables()) {
      myConsole->RegisterVariable(name, *variable);
    }
  }
  return myConsole.get();
}

CConsole* CApplicationFactory::NewConsole() { return myConsoleMaker->Create(); }

CLog* CApplicationFactory::GetLog() { return CLog::GetSingletonPtr(); }

}  // namespace vask
