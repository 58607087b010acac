#include "kernel/application.h"

#include "console/consoleparams.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"
#include "support/logcapture.h"
#include "support/tasks.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>

namespace vask::test {
namespace {

std::string ourRecord;

// Writes down how it is started, what is sent to it, and that it ends.
struct CTaskSample : CTask {
  using CTask::Start;
  bool Start(CConsoleParams* params) override {
    ourRecord += GetName() + "@" + std::to_string(GetPriority());
    for (int i = 0; i < params->Size(); ++i) {
      ourRecord += "," + params->GetString(i);
    }
    ourRecord += " ";
    return true;
  }
  void Update() override {}
  void Pause() override { ourRecord += GetName() + ".pause "; }
  void Resume() override { ourRecord += GetName() + ".resume "; }
  void Exit() override { ourRecord += GetName() + ".exit "; }
  bool ExecuteCommand(const std::string& line) override {
    ourRecord += GetName() + "<" + line + "> ";
    return line != "unknown";
  }
};

void RegisterSampleTasks() { const CTaskTypeRegistrar<CTaskSample> registrar("loaded"); }
const CTaskLibraryRegistrar theLibraryRegistrar("samples", &RegisterSampleTasks);

int ourVariable = 0;
const CConsoleVariableRegistrar theVariableRegistrar("program_variable", ourVariable);

struct Application : testing::Test {
  ~Application() override {
    CTaskFactory::DeleteSingleton();
    CKernel::DeleteSingleton();
    CApplicationFactory::DeleteSingleton();
    ourRecord.clear();
  }
};

TEST_F(Application, BasicCommandsReachTheTasks) {
  const CTaskTypeRegistrar<CTaskSample> registrar("sample");
  const CLogCapture log;
  // The result of a line, and what the tasks wrote down.
  const auto outcome = [](const std::string& line) {
    const std::string result = Execute(line);
    return result + " | " + std::exchange(ourRecord, {});
  };
  EXPECT_EQ(outcome("starttask(\"sample\")"), "sample started | sample@100 ");
  EXPECT_EQ(outcome("STARTTASK(sample, a, -5.9, 1, x)"), "a started | a@-5,1,x ");
  EXPECT_EQ(outcome("starttask(sample, 5)"), "sample started | sample@5 ");
  EXPECT_EQ(outcome("starttask(sample, b, 99999999999, 7)"), "b started | b@2147483647,7 ");
  EXPECT_EQ(outcome("a::do(1, 2)"), " | a<do(1, 2)> ");
  EXPECT_EQ(outcome("a::unknown"), "No namespace named space\n | a<unknown> ");
  EXPECT_EQ(outcome("pausetask(a); resumetask(a)"), "\n\n | a.pause a.resume ");
  EXPECT_EQ(outcome("stoptask(a)"), " | a.exit ");
  EXPECT_EQ(outcome("stoptask(a)"), " | ") << "ended already";
  EXPECT_EQ(CTaskFactory::GetSingleton().GetTaskNames(), (std::vector<std::string>{"b", "sample"}));
  EXPECT_EQ(outcome("stoptask(1, b)"),
            "Error: StopTask( taskname ) requires atleast one parameter. | ");
  EXPECT_EQ(outcome("taskload(none)"), " | ");
  EXPECT_EQ(outcome("quit"), "bye bye | ");
  EXPECT_FALSE(log.Has("[ERROR]")) << log.Text();
}

TEST_F(Application, UnknownNamesAreLogged) {
  const CLogCapture log;
  EXPECT_EQ(Execute("starttask(100%d, n)"), "failed to start n");
  Execute("pausetask(%s);resumetask(A);stoptask(z);b::do");
  EXPECT_TRUE(log.Text().ends_with(
      "[ERROR] Trying to start a task 100%d that doesn't exist.\n"
      "[ERROR] Trying to pause a task %s that doesn't exist.\n"
      "[ERROR] Trying to resume a task A that doesn't exist.\n"
      "CTaskFactory::StopTask() called[ERROR] Trying to stop a task z that doesn't exist.\n"
      "[ERROR] Sorry the namespace or task b doesn't exist.\n"))
      << log.Text();
}

TEST_F(Application, ToggleRunsItsLinesInTurnAndKeepsItsState) {
  EXPECT_EQ(Execute("toggle(_On, Z = one, z = two)"), "one");
  EXPECT_EQ(Execute("_on"), "1");
  EXPECT_EQ(Execute("TOGGLE(_on, z = one, z = two)"), "two");
  EXPECT_EQ(Execute("_on"), "0");
  EXPECT_EQ(Execute("toggle(_on, _on = -0.5, two)"), "-0.5") << "the line may say otherwise";
  EXPECT_EQ(Execute("toggle(_on, one, help(z))"), "z is a variable: two");
  for (const char* line : {"toggle(1, z, z)", "toggle(_on, 1, z)", "toggle(_on, z, 1)"}) {
    EXPECT_TRUE(Execute(line).starts_with("Error: Toggle(")) << line;
  }
}

TEST_F(Application, HelpListsAndExplains) {
  EXPECT_EQ(Execute("z = 1; help"),
            "1\nCommands: help, load, pausetask, quit, resumetask, starttask, stoptask, taskload, "
            "toggle\nVariables: program_variable, z\nhelp(name) tells more of one.\n");
  EXPECT_EQ(Execute("help(5)"), "There is no command or variable 5.");
  EXPECT_TRUE(Execute("help(QUIT)").starts_with("quit"));
  for (const char* name : {"load", "pausetask", "resumetask", "starttask", "toggle"}) {
    EXPECT_TRUE(Execute("help(" + std::string(name) + ")").starts_with(name)) << name;
  }
}

TEST_F(Application, TheScriptStartsTheTasksAndQuittingTakesAllDown) {
  std::ofstream("autoexec.txt") << "starttask(loaded, early)\ntaskload(samples)\n"
                                << "starttask(loaded, l)\nkernel_frame_sleep = 3\n"
                                << "program_variable = 7\n"
                                << "load(more.txt)\nquit";
  std::ofstream("more.txt") << "starttask(loaded, more)";
  const auto before = std::signal(SIGPIPE, SIG_DFL);
  {
    CApplication application;
    EXPECT_EQ(std::signal(SIGPIPE, before), SIG_IGN);
    EXPECT_EQ(application.Run(), 0);
    EXPECT_EQ(CKernel::GetSingleton().FrameSleep(), 3);
    EXPECT_EQ(ourVariable, 7);
  }
  EXPECT_EQ(ourRecord, "l@100 more@100 more.exit l.exit ");
  EXPECT_EQ(CKernel::PeekSingletonPtr(), nullptr);
  EXPECT_EQ(CLog::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace vask::test
