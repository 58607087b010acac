#pragma once

#include "designpatterns/singleton.h"

#include <deque>
#include <string>

namespace vask::tester {

struct STest;

// Answers true when the test has failed. What failed stands in the record then.
using TestFunction = bool (*)(STest& test);

// One self-test, and what failed in its last run.
struct STest {
  // Notes the failure; answers true, for the test function to return.
  bool Fail(const std::string& failedAssertion, const std::string& failureMessage);
  // Runs the function, with no failure left from an earlier run. An exception is a failure.
  bool Run();

  TestFunction function;
  std::string name;
  std::string file;
  std::string assertion;
  std::string message;
};

// The tests that the program carries, for a user to see on his own machine that the build is sound.
// They run inside the running program, so each leaves clock, variables and tasks as it found them.
//
//   bool TestSum(STest& test) {
//     VASK_TEST_ASSERT(test, Sum(2, 2) == 4, "2 and 2 are not 4");
//     return false;
//   }
//   const CTestRegistrar registrar(&TestSum, "Sum", __FILE__);
class CTester : public CStaticSingleton<CTester> {
 public:
  void Register(TestFunction function, const std::string& name, const std::string& file);
  // Runs every test in the order of registration and writes the report to the log.
  void RunAll();

 private:
  std::deque<STest> myTests;  // stay where they are when a test registers another
};

// Enters a test from a static initialiser.
class CTestRegistrar {
 public:
  CTestRegistrar(TestFunction function, const std::string& name, const std::string& file);
};

}  // namespace vask::tester

// Ends the test function as failed unless the expression holds.
#define VASK_TEST_ASSERT(test, expression, message) \
  do {                                              \
    if (!(expression)) {                            \
      return (test).Fail(#expression, message);     \
    }                                               \
  } while (false)
