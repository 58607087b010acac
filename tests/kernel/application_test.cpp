#include "kernel/application.h"

#include <fstream>

#include "console/consoleparams.h"
#include "kernel/tasklibraries.h"
#include "kernel_support.h"
#include "support/logcapture.h"

namespace vask::test {
namespace {

std::string& Record() {
  static std::string record;
  return record;
}

// A task as the script starts one: it records its parameters and has a console line to itself.
class CScripted : public CTask {
 public:
  using CTask::Start;
  bool Start(CConsoleParams* params) override {
    Record() += GetName() + "@" + std::to_string(GetPriority());
    for (int i = 0; i < params->Size(); ++i) {
      Record() += "," + params->GetString(i);
    }
    Record() += " ";
    return true;
  }
  void Update() override {}
  void Exit() override { Record() += GetName() + ".exit "; }
  bool ExecuteCommand(const std::string& line) override {
    Record() += GetName() + "<" + line + "> ";
    return line != "refused";
  }
};

struct ApplicationTest : CKernelTest {
  ApplicationTest() {
    CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<CScripted>("scripted");
    Record().clear();
  }
  static std::string Execute(const std::string& line) {
    return CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(line, false);
  }
};

TEST_F(ApplicationTest, BasicCommandsAnswerAndAct) {
  // clang-format off
  const struct {
    const char* line;
    const char* result;
    const char* logged;
    const char* record;
  } cases[] = {
      {"starttask(\"scripted\")", "scripted started", "", "scripted@100 "},
      {"STARTTASK(scripted, a, -5.9, 1, x)", "a started", "", "a@-5,1,x "},
      {"starttask(scripted, 5)", "scripted started", "", "scripted@5 "},
      {"starttask(scripted, g, x, 7)", "g started", "", "g@100,x,7 "},
      {"starttask(scripted, big, 99999999999)", "big started", "", "big@2147483647 "},
      {"starttask(100%d, n)", "failed to start n", "[ERROR] Trying to start a task 100%d that doesn't exist.\n", ""},
      {"starttask(5)", "Error: StartTask( tasktype, taskname, priority ) requires atleast one parameter.", "", ""},
      {"pausetask(5)", "Error: PauseTask( taskname ) requires atleast one parameter.", "", ""},
      {"pausetask(%s)", "", "[ERROR] Trying to pause a task %s that doesn't exist.\n", ""},
      {"pausetask(a); pausetask(a)", "\n\n", "", ""},
      {"resumetask(A)", "", "[ERROR] Trying to resume a task A that doesn't exist.\n", ""},
      {"resumetask", "Error: ResumeTask( taskname ) requires atleast one parameter.", "", ""},
      {"stoptask()", "Error: StopTask( taskname ) requires atleast one parameter.", "", ""},
      {"stoptask(z)", "", "CTaskFactory::StopTask() called[ERROR] Trying to stop a task z that doesn't exist.\n", ""},
      {"stoptask(a); stoptask(a)", "\n\n", "CTaskFactory::StopTask() calledCTaskFactory::StopTask() called", "a.exit "},
      {"a::do(1, 2)", "", "", "a<do(1, 2)> "},
      {"a::refused", "No namespace named space\n", "", "a<refused> "},
      {"b::do", "No namespace named space\n", "[ERROR] Sorry the namespace or task b doesn't exist.\n", ""},
      {"load", "Error: Load() You need to give a filename as a parameter.", "", ""},
      {"load(missing.txt)", "", "", ""},
      {"taskload(1)", "Error: TaskLoad() You need to give a task library name as a parameter.", "", ""},
      {"taskload(none)", "", "", ""},
      {"quit", "bye bye", "", ""},
  };
  // clang-format on
  for (const auto& c : cases) {
    CLogCapture log;
    EXPECT_EQ(Execute(c.line), c.result) << c.line;
    CLog::GetSingletonPtr()->Write("|\n");  // ends what is pending
    EXPECT_EQ(log.Text(), std::string(c.logged) + "|\n") << c.line;
    EXPECT_EQ(std::exchange(Record(), {}), c.record) << c.line;
  }
}

TEST_F(ApplicationTest, TheScriptStartsTheTasksAndQuittingTakesAllDown) {
  const CTaskLibraryRegistrar registrar("lib", [] {
    CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<CScripted>("loaded");
  });
  std::ofstream("autoexec.txt") << "starttask(loaded, early)\ntaskload(lib)\n"
                                << "starttask(loaded, l)\nkernel_frame_sleep = -7\nquit";
  // The task factory serves the next application, too, and knows the library's type by then.
  for (const char* expected : {"l@100 l.exit ", "early@100 l@100 l.exit early.exit "}) {
    {
      CApplication application;
      EXPECT_EQ(Kernel().FrameSleep(), -7);
      EXPECT_EQ(application.Run(), 0);
      EXPECT_EQ(Kernel().FrameSleep(), 0);  // held in its range
    }
    EXPECT_EQ(std::exchange(Record(), {}), expected);
    EXPECT_EQ(CKernel::PeekSingletonPtr(), nullptr);
    EXPECT_EQ(CApplicationFactory::PeekSingletonPtr(), nullptr);
    EXPECT_EQ(CLog::PeekSingletonPtr(), nullptr);
  }
}

TEST_F(ApplicationTest, LoadRunsOnTheApplicationConsoleAndEchoIsLogged) {
  std::ofstream("set.txt") << "where = here";
  CApplicationFactory& factory = CApplicationFactory::GetSingleton();
  const std::unique_ptr<CConsole> own(factory.NewConsole());
  EXPECT_TRUE(own->GetCommands().empty());  // a task's console has none of the basic commands
  own->AddCommand("load", factory.GetConsole()->GetCommand("load"));
  const CLogCapture log;
  own->Execute("load(set.txt)", true);
  EXPECT_EQ(own->Execute("where", false) + Execute("where"), "wherehere");
  EXPECT_EQ(own->Execute("x = 100%s", true), "100%s");
  EXPECT_EQ(log.Text(), "load(set.txt)\nx = 100%s\n100%s\n");
}

}  // namespace
}  // namespace vask::test
