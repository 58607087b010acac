#include "console/commandfactory.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "kernel/consolebridge.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The commands for a person at the console: the library "extra".

namespace vask {
namespace {

// What "help" prints. A command's own usage text would do for some of them only: called without
// parameters, "quit" quits.
struct SUsage {
  std::string_view command;  // in lower case
  std::string_view text;
};

constexpr std::array kUsages = std::to_array<SUsage>({
    {"help",
     "help lists commands and variables; help(name) tells how to use a command, or a variable's "
     "value."},
    {"load", "load(file) runs every line of a script file."},
    {"pausetask", "pausetask(task) parks a running task until resumetask."},
    {"quit", "quit ends the program after this frame."},
    {"resumetask", "resumetask(task) lets a parked task run again."},
    {"starttask",
     "starttask(type, name, priority, ...) starts a task; lower priorities run first in a frame. "
     "The name may be left out (it is the type then), and the priority (100); what follows goes to "
     "the task."},
    {"stoptask", "stoptask(task) ends a task for good."},
    {"taskload", "taskload(library) makes the task types of a library known: sdl or sdl_mixer."},
    {"toggle",
     "toggle(variable, line, line) runs the first line and sets the variable to 1; the next time "
     "it runs the second and sets it to 0. The lines hold no comma, \"::\", \";\" or \"//\"."},
});

std::string Join(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    text += (text.empty() ? "" : ", ") + name;
  }
  return text;
}

std::string UsageOf(const std::string& command) {
  std::string own = CConsoleBridge::Application().GetCommand(command)->GetHelp();
  if (!own.empty()) {
    return own;
  }
  const auto isIt = [&](const SUsage& usage) {
    return CConsoleBridge::Application().GetCommand(std::string(usage.command)) ==
           CConsoleBridge::Application().GetCommand(command);
  };
  const auto* found = std::ranges::find_if(kUsages, isIt);
  return found != kUsages.end() ? std::string(found->text)
                                : "There is no help for the command " + command + ".";
}

class CConsoleCmdHelp : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (params->Size() == 0) {
      return Execute();
    }
    const std::string name = params->GetString(0);
    if (CConsoleBridge::Application().GetCommand(name) != nullptr) {
      return UsageOf(name);
    }
    if (CConsoleBridge::Application().FindVariable(name) != nullptr) {
      return name + " is a variable: " + CConsoleBridge::Application().GetVariable(name);
    }
    return "There is no command or variable " + name + ".";
  }
  std::string Execute() override {
    return "Commands: " + Join(CConsoleBridge::Application().GetCommandNames()) +
           "\nVariables: " + Join(CConsoleBridge::Application().GetVariableNames()) +
           "\nhelp(name) tells more of one.";
  }
};

class CConsoleCmdToggle : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    const auto isText = [&](int index) {
      return params->Has(index, CVariable::kString) && !params->GetString(index).empty();
    };
    // A fourth parameter is a line that was cut at a comma.
    if (params->Size() != 3 || !isText(0) || !isText(1) || !isText(2)) {
      return Execute();
    }
    const std::string variable = params->GetString(0);
    const bool isSecond =
        CVariableString(CConsoleBridge::Application().GetVariable(variable)).GetNumber() != 0.0;
    // Before the line runs, so that the line may say otherwise.
    CConsoleBridge::Application().SetVariable(variable, isSecond ? "0" : "1");
    return CConsoleBridge::Application().Execute(params->GetString(isSecond ? 2 : 1), false);
  }
  std::string Execute() override {
    return "Error: Toggle( variable, line, line ) requires a variable and two lines without a "
           "comma.";
  }
};

void RegisterExtraCommands() {
  CCommandFactory& factory = CCommandFactory::GetSingleton();
  factory.AddCommand("extra", "help", std::make_unique<CConsoleCmdHelp>());
  factory.AddCommand("extra", "toggle", std::make_unique<CConsoleCmdToggle>());
}

const CConsoleLibraryRegistrar theRegistrar("extra", &RegisterExtraCommands);

}  // namespace
}  // namespace vask
