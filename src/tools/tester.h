#pragma once

#include "designpatterns/singleton.h"

#include <deque>
#include <string>

namespace vask::tester {

struct STest;

// Returns true when the test has failed. The record then says what failed.
using TestFunction = bool (*)(STest& test);

// One self-test, and what failed in its last run.
struct STest {
  // Notes the failure; returns true, for the test function to return.
  bool Fail(const std::string& failedAssertion, const std::string& failureMessage);
  // Runs the function, with no failure left from an earlier run. An exception is a failure.
  bool Run();

  TestFunction function;
  std::string name;
  std::string file;
  std::string assertion;
  std::string message;
};

// The self-tests of the program, with which a user checks the build on his own machine. They run
// inside the program, so each leaves clock, variables and tasks as it found them.
//
//     bool TestSum(STest& test) {
//       VASK_TEST_ASSERT(test, Sum(2, 2) == 4, "2 and 2 are not 4");
//       return false;
//     }
//     const CTestRegistrar registrar(&TestSum, "Sum", __FILE__);
class CTester : public CStaticSingleton<CTester> {
 public:
  void Register(TestFunction function, const std::string& name, const std::string& file);
  // Runs every test in the order of registration and writes the report to the log.
  void RunAll();

 private:
  std::deque<STest> myTests;  // a deque: a test may register another
};

// Registers a test from a static initialiser.
class CTestRegistrar {
 public:
  CTestRegistrar(TestFunction function, const std::string& name, const std::string& file);
};

}  // namespace vask::tester

// Lets the test function fail and return unless the expression holds.
#define VASK_TEST_ASSERT(test, expression, message) \
  do {                                              \
    if (!(expression)) {                            \
      return (test).Fail(#expression, message);     \
    }                                               \
  } while (false)
