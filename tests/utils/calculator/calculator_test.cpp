#include "utils/calculator/calculator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vask {
namespace {

TEST(Calculator, TheExampleOfTheHeader) {
  CCalculator<float> calculator;
  const float value = calculator.Calculate("3 + 4 * 2");  // 11
  EXPECT_EQ(value, 11.0F);
}

TEST(Calculator, ConvertsByPriority) {
  CInfixToPostfix converter;
  converter.AddOperator("#", 3);
  EXPECT_EQ(converter.Convert("1 + 2 # 3 * (4 - -5)"), "1 2 3 # 4 -5 - * + ");
  EXPECT_EQ(converter.GetPriority("#"), 3);
  EXPECT_EQ(converter.GetPriority("?"), 0);
}

TEST(Calculator, Evaluates) {
  const std::pair<const char*, double> cases[] = {
      {"", 0},
      {" \t ", 0},
      {"2 - 3 - 4", -5},
      {"2 ^ 3 ^ 2", 64},
      {"2 ^ 0.5", std::sqrt(2.0)},
      {"-5 + 3", -2},
      {"3 * -2", -6},
      {"3 * - 2", -6},
      {"3--2", 5},
      {"3---2", 3},  // "--2" is a value that does not read
      {"-(2 + 3)", -5},
      {"2*-sin(1)", -std::sin(1.0)},
      {"sqrt(16) * 2", 8},
      {"cos(0) + tan(1)", 1 + std::tan(1.0)},
      {"10 / 0", 0},
      {"7 / 2", 3.5},
      {"2 *", 0},
      {"(1 + 2", 3},
      {"1 + 2)", 3},
      {"distance + 1", 1},  // "tan" is taken for the operator
      {"+", 0},
      {"1..5 + 1", 2}};
  for (const auto& [text, value] : cases) {
    // A calculator of its own: what malformed text leaves on the stack reaches into the next one.
    EXPECT_DOUBLE_EQ(CCalculator<double>().Calculate(text), value) << text;
    EXPECT_FLOAT_EQ(CCalculator<float>().Calculate(text), static_cast<float>(value)) << text;
  }
}

TEST(Calculator, IntegersNeverTrap) {
  const int least = std::numeric_limits<int>::min();
  const std::pair<const char*, int> cases[] = {
      {"7 2 /", 3}, {"-7 2 / ", -3},           {"10 0 /", 0},        {"-2147483648 -1 /", least},
      {"4 -", -4},  {"2147483647 1 +", least}, {"65536 65536 *", 0}, {"2 3 sin", 3},
      {"+ 1", 1}};
  for (const auto& [postfix, value] : cases) {
    EXPECT_EQ(CPostfix<int>().Evaluate(postfix), value) << postfix;
  }
}

TEST(Calculator, LeftoverValuesStayOnTheStack) {
  CCalculator<double> calculator;
  EXPECT_EQ(calculator.Calculate("2 3"), 3);
  EXPECT_EQ(calculator.Calculate("*5"), 10);
}

TEST(Calculator, HugeExpressionsEnd) {
  const std::string signs(1 << 18, '-');
  CCalculator<double> calculator;
  EXPECT_EQ(calculator.Calculate(signs + "5"), 0) << "one value, which does not read";
  EXPECT_EQ(calculator.Calculate(signs + "(5)"), -5) << "all but one lack an operand";
  EXPECT_EQ(calculator.Calculate(std::string(1 << 18, '(') + "6"), 6);
}

}  // namespace
}  // namespace vask
