#include "kernel/basiccommands.h"

#include "console/commandfactory.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"

#include <memory>

namespace vask {

class CConsoleCmdQuit : public CConsoleCommand {
 public:
  std::string Execute() override {
    CKernel::GetSingletonPtr()->Quit();
    return "bye bye";
  }
};

class CConsoleCmdLoad : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return Execute();
    }
    return CApplicationFactory::GetSingletonPtr()->GetConsole()->ExecuteFile(params->GetString(0));
  }
  std::string Execute() override {
    return "Error: Load() You need to give a filename as a parameter.";
  }
};

class CConsoleCmdTaskLoad : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return Execute();
    }
    CTaskLibraries::GetSingletonPtr()->Load(params->GetString(0));
    return {};
  }
  std::string Execute() override {
    return "Error: TaskLoad() You need to give a task library name as a parameter.";
  }
};

// starttask(type [, name] [, priority] [, what the task's own start takes...])
class CConsoleCmdStartTask : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return Execute();
    }
    const std::string type = params->GetString(0);
    params->PopFront();
    std::string name = type;
    if (params->Has(0, CVariable::kString)) {
      name = params->GetString(0);
      params->PopFront();
    }
    int priority = kDefaultPriority;
    if (params->Has(0, CVariable::kNumber)) {
      priority = ToInteger(params->GetNumber(0));
      params->PopFront();
    }
    const bool ok = CTaskFactory::GetSingletonPtr()->StartTask(type, name, priority, params);
    return ok ? name + " started" : "failed to start " + name;
  }
  std::string Execute() override {
    return "Error: StartTask( tasktype, taskname, priority ) requires atleast one parameter.";
  }

 private:
  // Of tasks that the script starts without one; later than the default of CTask itself.
  static constexpr int kDefaultPriority = 100;
};

class CConsoleCmdPauseTask : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return Execute();
    }
    CTaskFactory::GetSingletonPtr()->PauseTask(params->GetString(0));
    return {};
  }
  std::string Execute() override {
    return "Error: PauseTask( taskname ) requires atleast one parameter.";
  }
};

class CConsoleCmdResumeTask : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return Execute();
    }
    CTaskFactory::GetSingletonPtr()->ResumeTask(params->GetString(0));
    return {};
  }
  std::string Execute() override {
    return "Error: ResumeTask( taskname ) requires atleast one parameter.";
  }
};

class CConsoleCmdStopTask : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return Execute();
    }
    CTaskFactory::GetSingletonPtr()->StopTask(params->GetString(0));
    return {};
  }
  std::string Execute() override {
    return "Error: StopTask( taskname ) requires atleast one parameter.";
  }
};

void RegisterBasicCommands() {
  static bool isRegistered = false;
  if (isRegistered) {
    return;
  }
  isRegistered = true;
  CCommandFactory& factory = CCommandFactory::GetSingleton();
  factory.AddCommand("basic", "quit", std::make_unique<CConsoleCmdQuit>());
  factory.AddCommand("basic", "load", std::make_unique<CConsoleCmdLoad>());
  factory.AddCommand("basic", "taskload", std::make_unique<CConsoleCmdTaskLoad>());
  factory.AddCommand("basic", "starttask", std::make_unique<CConsoleCmdStartTask>());
  factory.AddCommand("basic", "pausetask", std::make_unique<CConsoleCmdPauseTask>());
  factory.AddCommand("basic", "resumetask", std::make_unique<CConsoleCmdResumeTask>());
  factory.AddCommand("basic", "stoptask", std::make_unique<CConsoleCmdStopTask>());
}

}  // namespace vask
