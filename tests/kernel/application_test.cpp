#include "kernel/application.h"

#include "console/consoleparams.h"
#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"
#include "support/logcapture.h"

#include <gtest/gtest.h>

#include <fstream>

namespace vask::test {
namespace {

std::string scripted;

// A task as the script starts one: it records its parameters and has a console line to itself.
class CScripted : public CTask {
 public:
  using CTask::Start;
  bool Start(CConsoleParams* params) override {
    scripted += GetName() + "@" + std::to_string(GetPriority());
    for (int i = 0; i < params->Size(); ++i) {
      scripted += "," + params->GetString(i);
    }
    scripted += " ";
    return true;
  }
  void Update() override {}
  void Exit() override { scripted += GetName() + ".exit "; }
  bool ExecuteCommand(const std::string& line) override {
    scripted += GetName() + "<" + line + "> ";
    return line != "refused";
  }
};

TEST(Application, BasicCommandsAnswerAndAct) {
  CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<CScripted>("scripted");
  // clang-format off
  const struct { const char* line; const char* result; std::string logged; const char* record; } cases[] = {
      {"starttask(\"scripted\")", "scripted started", "", "scripted@100 "},
      {"STARTTASK(scripted, a, -5.9, 1, x)", "a started", "", "a@-5,1,x "},
      {"starttask(scripted, 5)", "scripted started", "", "scripted@5 "},
      {"starttask(scripted, big, 99999999999, 7)", "big started", "", "big@2147483647,7 "},
      {"starttask(100%d, n)", "failed to start n",
       "[ERROR] Trying to start a task 100%d that doesn't exist.\n", ""},
      {"pausetask(%s)", "", "[ERROR] Trying to pause a task %s that doesn't exist.\n", ""},
      {"resumetask(A)", "", "[ERROR] Trying to resume a task A that doesn't exist.\n", ""},
      {"stoptask(z)", "",
       "CTaskFactory::StopTask() called[ERROR] Trying to stop a task z that doesn't exist.\n", ""},
      {"a::do(1, 2)", "", "", "a<do(1, 2)> "},
      {"a::refused", "No namespace named space\n", "", "a<refused> "},
      {"b::do", "No namespace named space\n", "[ERROR] Sorry the namespace or task b doesn't exist.\n", ""},
      {"stoptask(a)", "", "CTaskFactory::StopTask() called", "a.exit "},
      {"load", "Error: Load() You need to give a filename as a parameter.", "", ""},
      {"taskload(none)", "", "", ""}, {"quit", "bye bye", "", ""},
  };
  // clang-format on
  for (const auto& c : cases) {
    const CLogCapture log;
    EXPECT_EQ(CApplicationFactory::GetSingleton().GetConsole()->Execute(c.line, false), c.result);
    CLog::GetSingletonPtr()->Write("|\n");  // ends what is pending
    EXPECT_EQ(log.Text(), c.logged + "|\n") << c.line;
    EXPECT_EQ(std::exchange(scripted, {}), c.record) << c.line;
  }
  CTaskFactory::DeleteSingleton();
  CKernel::DeleteSingleton();
  CApplicationFactory::DeleteSingleton();
}

TEST(Application, TheScriptStartsTheTasksAndQuittingTakesAllDown) {
  const CTaskLibraryRegistrar registrar("lib", [] {
    CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<CScripted>("loaded");
  });
  std::ofstream("autoexec.txt") << "starttask(loaded, early)\ntaskload(lib)\n"
                                << "starttask(loaded, l)\nkernel_frame_sleep = -7\nquit";
  // The task factory serves the next application, too, and knows the library's type by then.
  for (const char* expected : {"l@100 l.exit ", "early@100 l@100 l.exit early.exit "}) {
    {
      CApplication application;
      EXPECT_EQ(application.Run(), 0);
      EXPECT_EQ(CKernel::GetSingleton().FrameSleep(), 0);  // held in its range
    }
    EXPECT_EQ(std::exchange(scripted, {}), expected);
    EXPECT_TRUE(!CKernel::PeekSingletonPtr() && !CApplicationFactory::PeekSingletonPtr());
    EXPECT_EQ(CLog::PeekSingletonPtr(), nullptr);
  }
}

}  // namespace
}  // namespace vask::test
