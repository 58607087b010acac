#include "tools/tester.h"

#include "kernel/kernel.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/tasks.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vask::tester {
namespace {

int ourError = 0;
int Sum(int a, int b) { return a + b + ourError; }

bool TestSum(STest& test) {
  VASK_TEST_ASSERT(test, Sum(2, 2) == 4, "2 and 2 are not 4");
  return false;
}
const CTestRegistrar registrar(&TestSum, "Sum", __FILE__);

TEST(Tester, ReportsEachTestAndTheOutcome) {
  CTester tester;
  const auto report = [&tester] { return test::Logged([&tester] { tester.RunAll(); }); };
  tester.Register(&TestSum, "sum", "a.cpp");
  const std::string rule = "( ) " + std::string(66, '-') + " \n";
  const std::string begin = "( ) Vask tester...\n" + rule;
  EXPECT_EQ(report(), begin + "( )   sum [OK]\n" + rule + "( ) All tests OK\n( ) \n");
  tester.Register([](STest&) { return false; }, "good", "b.cpp");
  tester.Register([](STest&) -> bool { throw std::runtime_error("a\nb"); }, "thrower", "c.cpp");
  tester.Register([](STest&) { return true; }, "mute", "d.cpp");
  ourError = 1;
  const std::string failed = report();
  ourError = 0;
  const std::string onAssert = "<!>    on the following test assert: ";
  EXPECT_EQ(failed, begin + "<!>   sum FAILED!\n<!>    in the file a.cpp.\n" + onAssert +
                        "Sum(2, 2) == 4\n<!>   2 and 2 are not 4\n( )   good [OK]\n"
                        "<!>   thrower FAILED!\n<!>    in the file c.cpp.\n" +
                        onAssert +
                        "no exception\n<!>   a b\n"
                        "<!>   mute FAILED!\n<!>    in the file d.cpp.\n" +
                        onAssert + "\n<!>   \n" + rule +
                        "<!> Some of the tests failed miserably\n( ) \n");
}

constexpr std::size_t kShippedTests = 7;  // those of the game included

// The self-tests that the program ships, started as a user starts them.
TEST(Tester, TheTaskRunsTheSelfTestsAndLeavesNoTrace) {
  const test::CFakeClock clock;
  const auto* installed = &*GetGlobalTimerImpl();
  test::Execute("a = before");
  for (const std::string name : {"first", "second"}) {
    const test::CLogCapture log;
    EXPECT_EQ(test::Execute("starttask(unittest, " + name + ")"), name + " started");
    EXPECT_TRUE(log.Has("All tests OK")) << log.Text();
    EXPECT_EQ(log.Count(" [OK]"), kShippedTests + 1) << log.Text();
    EXPECT_TRUE(log.Has("Sum [OK]")) << "the one of this file";
  }
  EXPECT_EQ(CKernel::GetSingletonPtr()->Run(), 0) << "a task that does not park would run on";
  EXPECT_EQ(&*GetGlobalTimerImpl(), installed);
  EXPECT_EQ(test::Execute("a"), "before");
}

}  // namespace
}  // namespace vask::tester
