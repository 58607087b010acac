#include "utils/calculator/calculator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

namespace vask {
namespace {

TEST(Calculator, LeftoverValuesStayOnTheStack) {
  CCalculator<float> calculator;
  const float value = calculator.Calculate("3 + 4 * 2");  // 11
  EXPECT_EQ(value, 11.0F);
  EXPECT_EQ(calculator.Calculate("2 3"), 3.0F);
  EXPECT_EQ(calculator.Calculate("*5"), 10.0F);
}

TEST(Calculator, ConvertsByPriority) {
  CInfixToPostfix converter;
  converter.AddOperator("#", 3);
  EXPECT_EQ(converter.Convert("1 + 2 # 3 * (4 - -5)"), "1 2 3 # 4 -5 - * + ");
}

// A calculator of its own: what malformed text leaves on the stack reaches into the next text.
double Value(const char* text) {
  const double value = CCalculator<double>().Calculate(text);
  EXPECT_FLOAT_EQ(CCalculator<float>().Calculate(text), static_cast<float>(value));
  return value;
}

TEST(Calculator, EvaluatesFromTheLeftByPriority) {
  EXPECT_EQ(Value("2 - 3 - 4"), -5);
  EXPECT_EQ(Value("2 * 3 ^ 2"), 18);
  EXPECT_EQ(Value("9 / 2 + sqrt(16)"), 8.5);
  EXPECT_DOUBLE_EQ(Value("cos(0) + tan(1)"), 1 + std::tan(1.0));
  EXPECT_EQ(Value("3--2"), 5);
  EXPECT_EQ(Value("-(2 + 3)"), -5);
  EXPECT_DOUBLE_EQ(Value("2*-sin(1)"), -std::sin(1.0));
}

TEST(Calculator, MalformedTextDegrades) {
  EXPECT_EQ(Value("(1 + 2"), 3);
  EXPECT_EQ(Value("1 + 2)"), 3);
  EXPECT_EQ(Value("distance + 1"), 1) << "tan is taken for the operator";
  EXPECT_EQ(Value("3---2"), 3) << "--2 is a value that does not read";
}

TEST(Calculator, NumbersAreReadAsAStreamReadsThem) {
  const std::string zeros(400, '0');
  for (const std::string& text :
       {"-1" + zeros, "0." + zeros + "1", std::string("+-5"), std::string("1.2.3")}) {
    double expected = 0;
    std::istringstream(text) >> expected;
    EXPECT_EQ(CPostfix<double>().Evaluate(text), expected) << text;
  }
}

TEST(Calculator, IntegersNeverTrap) {
  constexpr int kLeast = std::numeric_limits<int>::min();
  EXPECT_EQ(CPostfix<int>().Evaluate("-7 2 / "), -3);
  EXPECT_EQ(CPostfix<int>().Evaluate("-2147483648 -1 /"), kLeast);
  EXPECT_EQ(CPostfix<int>().Evaluate("2147483647 1 +"), kLeast);
  EXPECT_EQ(CPostfix<int>().Evaluate("4 -"), -4);
}

}  // namespace
}  // namespace vask
