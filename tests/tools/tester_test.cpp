#include "tools/tester.h"

#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vask::tester {
namespace {

// The report, each line after its level; blocks have levels of their own.
std::string Report(CTester& tester) {
  const test::CLogCapture log;
  tester.RunAll();
  std::string report;
  for (const auto& line : log.Lines()) {
    report += std::to_string(line.level) + line.text + "\n";
  }
  return report;
}

int ourError = 0;
int Sum(int a, int b) { return a + b + ourError; }

bool TestSum(STest& test) {
  VASK_TEST_ASSERT(test, Sum(2, 2) == 4, "2 and 2 are not 4");
  return false;
}
const CTestRegistrar registrar(&TestSum, "Sum", __FILE__);

TEST(Tester, ReportsEachTestAndTheOutcome) {
  CTester tester;
  tester.Register(&TestSum, "sum", "a.cpp");
  const std::string rule = "1" + std::string(66, '-') + " \n";
  const std::string begin = "1Vask tester...\n" + rule + "-2\n", end = "-1\n" + rule;
  EXPECT_EQ(Report(tester), begin + "1sum [OK]\n" + end + "1All tests OK\n1\n");
  ourError = 1;
  tester.Register([](STest&) { return false; }, "good", "b.cpp");
  tester.Register([](STest&) -> bool { throw std::runtime_error("a\nb"); }, "thrower", "c.cpp");
  tester.Register([](STest&) { return true; }, "mute", "d.cpp");
  const std::string report = Report(tester);
  ourError = 0;
  const std::string onAssert = "3 on the following test assert: ";
  EXPECT_EQ(report, begin + "3sum FAILED!\n3 in the file a.cpp.\n" + onAssert +
                        "Sum(2, 2) == 4\n32 and 2 are not 4\n1good [OK]\n"
                        "3thrower FAILED!\n3 in the file c.cpp.\n" +
                        onAssert + "no exception\n3a b\n3mute FAILED!\n3 in the file d.cpp.\n" +
                        onAssert + "\n3\n" + end + "3Some of the tests failed miserably\n1\n");
}

constexpr std::size_t kShippedTests = 7;  // those of the game included

// The self-tests that the program ships, started as a user starts them.
TEST(Tester, TheTaskRunsTheSelfTestsAndLeavesNoTrace) {
  const test::CFakeClock clock;
  const auto* installed = &*GetGlobalTimerImpl();
  CConsole& console = *CApplicationFactory::GetSingletonPtr()->GetConsole();
  console.SetVariable("a", "before");
  for (const std::string name : {"first", "second"}) {
    const test::CLogCapture log;
    EXPECT_EQ(console.Execute("starttask(unittest, " + name + ")", false), name + " started");
    EXPECT_TRUE(log.Has("All tests OK")) << log.Text();
    EXPECT_EQ(log.Count(" [OK]"), kShippedTests + 1) << log.Text();
    EXPECT_TRUE(log.Has("Sum [OK]")) << "the one of this file";
  }
  EXPECT_EQ(CKernel::GetSingletonPtr()->Run(), 0) << "a task that does not park would run on";
  EXPECT_EQ(&*GetGlobalTimerImpl(), installed);
  EXPECT_EQ(console.GetVariable("a"), "before");
}

}  // namespace
}  // namespace vask::tester
