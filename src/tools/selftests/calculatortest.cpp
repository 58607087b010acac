#include "tools/tester.h"
#include "utils/calculator/calculator.h"

#include <cmath>
#include <string>

namespace vask::tester {
namespace {

bool TestCalculator(STest& test) {
  const struct {
    const char* expression;
    double value;
  } cases[] = {
      {"3 + 4 * 2", 11.0},        {"(3 + 4) * 2", 14.0}, {"2 ^ 3 ^ 2", 64.0},
      {"sqrt(16) - sin(0)", 4.0}, {"1 / 0", 0.0},        {"", 0.0},
  };
  CCalculator<double> calculator;
  for (const auto& c : cases) {
    const double value = calculator.Calculate(c.expression);
    VASK_TEST_ASSERT(test, std::abs(value - c.value) < 1e-9,
                     std::string(c.expression) + " gave " + std::to_string(value));
  }
  return false;
}

const CTestRegistrar theRegistrar(&TestCalculator, "Calculator", __FILE__);

}  // namespace
}  // namespace vask::tester
