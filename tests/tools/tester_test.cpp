#include "tools/tester.h"

#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace vask::tester {
namespace {

// The report, each line after the digit of its level; blocks are "(" and ")".
std::string Report(CTester& tester) {
  const test::CLogCapture log;
  tester.RunAll();
  std::string report;
  for (const auto& line : log.Lines()) {
    if (line.level < 0) {
      report += line.level == kLogBlockBegin ? "(" : ")";
    } else {
      report += std::to_string(line.level) + line.text + "\n";
    }
  }
  return report;
}

int Sum(int a, int b) { return a + b; }

bool TestSum(STest& test) {
  VASK_TEST_ASSERT(test, Sum(2, 2) == 4, "2 and 2 are not 4");
  return false;
}
const CTestRegistrar registrar(&TestSum, "Sum", __FILE__);

const std::string kRule = "1------------------------------------------------------------------ \n";

TEST(Tester, ReportsEachTestAndTheOutcome) {
  CTester tester;
  EXPECT_EQ(Report(tester), "1Vask tester...\n" + kRule + "()" + kRule + "1All tests OK\n1\n");
  const auto refuse = [](STest& test) {
    VASK_TEST_ASSERT(test, 1 + 1 == 3, "two\nlines");
    return false;
  };
  const auto fling = [](STest&) -> bool { throw std::runtime_error("thrown"); };
  tester.Register([](STest&) { return false; }, "good", "good.cpp");
  tester.Register(refuse, "bad", "bad.cpp");
  tester.Register(fling, "thrower", "thrower.cpp");
  tester.Register([](STest&) { return true; }, "mute", "mute.cpp");
  const auto failed = [](const std::string& name, const std::string& what) {
    return "3" + name + " FAILED!\n3 in the file " + name +
           ".cpp.\n3 on the following test assert: " + what + "\n";
  };
  EXPECT_EQ(Report(tester), "1Vask tester...\n" + kRule + "(1good [OK]\n" +
                                failed("bad", "1 + 1 == 3\n3two lines") +
                                failed("thrower", "no exception\n3thrown") + failed("mute", "\n3") +
                                ")" + kRule + "3Some of the tests failed miserably\n1\n");
}

// The self-tests that the program ships, started as a user starts them.
TEST(Tester, TheTaskRunsTheSelfTestsAndLeavesNoTrace) {
  const test::CFakeClock clock;
  const auto* installed = &*GetGlobalTimerImpl();
  CConsole& console = *CApplicationFactory::GetSingletonPtr()->GetConsole();
  console.SetVariable("a", "before");
  for (const char* name : {"first", "second"}) {
    const test::CLogCapture log;
    EXPECT_EQ(console.Execute("starttask(unittest, " + std::string(name) + ")", false),
              std::string(name) + " started");
    EXPECT_TRUE(log.Has("All tests OK")) << log.Text();
    EXPECT_EQ(log.Count(" [OK]"), 7U + 1U) << log.Text();
    EXPECT_TRUE(log.Has("Sum [OK]"));
  }
  EXPECT_EQ(CKernel::GetSingletonPtr()->Run(), 0) << "a task that does not park would run on";
  EXPECT_EQ(&*GetGlobalTimerImpl(), installed);
  EXPECT_EQ(console.GetVariable("a"), "before");
}

}  // namespace
}  // namespace vask::tester
