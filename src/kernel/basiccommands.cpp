#include "console/commandfactory.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "kernel/consolebridge.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"

#include <memory>

// The commands that run the program from its script: the library "basic".

namespace vask {
namespace {

// A command whose first parameter is a string; without one it returns its usage text.
class CCommandWithString : public CConsoleCommand {
 public:
  std::string Execute() override { return GetUsage(); }
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return GetUsage();
    }
    const std::string text = params->GetString(0);
    params->PopFront();
    return Run(text, *params);
  }

 private:
  // With the string, and the parameters after it.
  virtual std::string Run(const std::string& text, CConsoleParams& rest) = 0;
  virtual std::string GetUsage() const = 0;
};

class CConsoleCmdQuit : public CConsoleCommand {
 public:
  std::string Execute() override {
    CKernel::GetSingletonPtr()->Quit();
    return "bye bye";
  }
};

class CConsoleCmdLoad : public CCommandWithString {
 private:
  std::string Run(const std::string& fileName, CConsoleParams& /*rest*/) override {
    return CConsoleBridge::Application().ExecuteFile(fileName);
  }
  std::string GetUsage() const override {
    return "Error: Load() You need to give a filename as a parameter.";
  }
};

class CConsoleCmdTaskLoad : public CCommandWithString {
 private:
  std::string Run(const std::string& library, CConsoleParams& /*rest*/) override {
    CTaskLibraries::GetSingletonPtr()->Load(library);
    return {};
  }
  std::string GetUsage() const override {
    return "Error: TaskLoad() You need to give a task library name as a parameter.";
  }
};

// starttask(type [, name] [, priority] [, what the task's own start takes...])
class CConsoleCmdStartTask : public CCommandWithString {
 private:
  std::string Run(const std::string& type, CConsoleParams& rest) override {
    std::string name = type;
    if (rest.Has(0, CVariable::kString)) {
      name = rest.GetString(0);
      rest.PopFront();
    }
    int priority = kDefaultPriority;
    if (rest.Has(0, CVariable::kNumber)) {
      priority = ToInteger(rest.GetNumber(0));
      rest.PopFront();
    }
    const bool ok = CTaskFactory::GetSingletonPtr()->StartTask(type, name, priority, &rest);
    return ok ? name + " started" : "failed to start " + name;
  }
  std::string GetUsage() const override {
    return "Error: StartTask( tasktype, taskname, priority ) requires atleast one parameter.";
  }

  // Of tasks that the script starts without one; later than the default of CTask itself.
  static constexpr int kDefaultPriority = 100;
};

class CConsoleCmdPauseTask : public CCommandWithString {
 private:
  std::string Run(const std::string& task, CConsoleParams& /*rest*/) override {
    CTaskFactory::GetSingletonPtr()->PauseTask(task);
    return {};
  }
  std::string GetUsage() const override {
    return "Error: PauseTask( taskname ) requires atleast one parameter.";
  }
};

class CConsoleCmdResumeTask : public CCommandWithString {
 private:
  std::string Run(const std::string& task, CConsoleParams& /*rest*/) override {
    CTaskFactory::GetSingletonPtr()->ResumeTask(task);
    return {};
  }
  std::string GetUsage() const override {
    return "Error: ResumeTask( taskname ) requires atleast one parameter.";
  }
};

class CConsoleCmdStopTask : public CCommandWithString {
 private:
  std::string Run(const std::string& task, CConsoleParams& /*rest*/) override {
    CTaskFactory::GetSingletonPtr()->StopTask(task);
    return {};
  }
  std::string GetUsage() const override {
    return "Error: StopTask( taskname ) requires atleast one parameter.";
  }
};

void RegisterBasicCommands() {
  CCommandFactory& factory = CCommandFactory::GetSingleton();
  factory.AddCommand("basic", "quit", std::make_unique<CConsoleCmdQuit>());
  factory.AddCommand("basic", "load", std::make_unique<CConsoleCmdLoad>());
  factory.AddCommand("basic", "taskload", std::make_unique<CConsoleCmdTaskLoad>());
  factory.AddCommand("basic", "starttask", std::make_unique<CConsoleCmdStartTask>());
  factory.AddCommand("basic", "pausetask", std::make_unique<CConsoleCmdPauseTask>());
  factory.AddCommand("basic", "resumetask", std::make_unique<CConsoleCmdResumeTask>());
  factory.AddCommand("basic", "stoptask", std::make_unique<CConsoleCmdStopTask>());
}

const CConsoleLibraryRegistrar theRegistrar("basic", &RegisterBasicCommands);

}  // namespace
}  // namespace vask
