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

std::string ourRecord;

// Writes down how it is started, what is sent to it, and that it ends.
class CTaskSample : public CTask {
 public:
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
  void Exit() override { ourRecord += GetName() + ".exit "; }
  bool ExecuteCommand(const std::string& line) override {
    ourRecord += GetName() + "<" + line + "> ";
    return line != "unknown";
  }
};

void RegisterSampleTasks() { const CTaskTypeRegistrar<CTaskSample> registrar("loaded"); }
const CTaskLibraryRegistrar ourLibraryRegistrar("samples", &RegisterSampleTasks);

class Application : public testing::Test {
 protected:
  ~Application() override {
    CTaskFactory::DeleteSingleton();
    CKernel::DeleteSingleton();
    CApplicationFactory::DeleteSingleton();
    ourRecord.clear();
  }
  static std::string Execute(const std::string& line) {
    return CApplicationFactory::GetSingleton().GetConsole()->Execute(line, false);
  }
};

TEST_F(Application, BasicCommandsReachTheTasks) {
  const CTaskTypeRegistrar<CTaskSample> registrar("sample");
  const struct {
    std::string line, result, record;
  } cases[] = {
      {.line = "starttask(\"sample\")", .result = "sample started", .record = "sample@100 "},
      {.line = "STARTTASK(sample, a, -5.9, 1, x)", .result = "a started", .record = "a@-5,1,x "},
      {.line = "starttask(sample, 5)", .result = "sample started", .record = "sample@5 "},
      {.line = "starttask(sample, big, 99999999999, 7)",
       .result = "big started",
       .record = "big@2147483647,7 "},
      {.line = "a::do(1, 2)", .result = "", .record = "a<do(1, 2)> "},
      {.line = "a::unknown", .result = "No namespace named space\n", .record = "a<unknown> "},
      {.line = "stoptask(a)", .result = "", .record = "a.exit "},
      {.line = "stoptask(a)", .result = "", .record = ""},
      {.line = "taskload(none)", .result = "", .record = ""},
      {.line = "quit", .result = "bye bye", .record = ""},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(Execute(row.line), row.result) << row.line;
    EXPECT_EQ(std::exchange(ourRecord, {}), row.record) << row.line;
  }
}

TEST_F(Application, UnknownNamesAreLogged) {
  const std::pair<const char*, const char*> cases[] = {
      {"starttask(100%d, n)", "Trying to start a task 100%d that doesn't exist."},
      {"pausetask(%s)", "Trying to pause a task %s that doesn't exist."},
      {"resumetask(A)", "Trying to resume a task A that doesn't exist."},
      {"stoptask(z)", "Trying to stop a task z that doesn't exist."},
      {"b::do", "Sorry the namespace or task b doesn't exist."}};
  for (const auto& [line, logged] : cases) {
    const CLogCapture log;
    Execute(line);
    EXPECT_TRUE(log.Text().ends_with(std::string("[ERROR] ") + logged + "\n")) << log.Text();
  }
  EXPECT_EQ(Execute("starttask(none, n)"), "failed to start n");
}

TEST_F(Application, BasicCommandsWithoutAStringReturnTheirUsage) {
  for (const char* parameters : {"", "()", "(1, x)"}) {
    EXPECT_EQ(Execute(std::string("stoptask") + parameters),
              "Error: StopTask( taskname ) requires atleast one parameter.");
  }
}

TEST_F(Application, TheEchoGoesToTheLog) {
  CConsole& console = *CApplicationFactory::GetSingleton().GetConsole();
  const CLogCapture log;
  EXPECT_EQ(console.Execute("word", true), "word");
  EXPECT_EQ(console.Execute("// none", true), "");
  EXPECT_EQ(log.Text(), "word\nword\n// none\n");
}

TEST_F(Application, TheScriptStartsTheTasksAndQuittingTakesAllDown) {
  std::ofstream("autoexec.txt") << "starttask(loaded, early)\ntaskload(samples)\n"
                                << "starttask(loaded, l)\nkernel_frame_sleep = -7\n"
                                << "load(more.txt)\nquit";
  std::ofstream("more.txt") << "starttask(loaded, more)";
  // The task factory serves the next application, too, and knows the library's type by then.
  for (const char* expected : {"l@100 more@100 more.exit l.exit ",
                               "early@100 l@100 more@100 more.exit l.exit early.exit "}) {
    {
      CApplication application;
      const CLog* log = CApplicationFactory::GetSingleton().GetLog();
      EXPECT_EQ(log, CLog::PeekSingletonPtr());
      EXPECT_EQ(application.Run(), 0);
      EXPECT_EQ(CKernel::GetSingleton().FrameSleep(), 0);  // held in its range
    }
    EXPECT_EQ(std::exchange(ourRecord, {}), expected);
    EXPECT_EQ(CKernel::PeekSingletonPtr(), nullptr);
    EXPECT_EQ(CApplicationFactory::PeekSingletonPtr(), nullptr);
    EXPECT_EQ(CLog::PeekSingletonPtr(), nullptr);
  }
}

}  // namespace
}  // namespace vask::test
