#include "utils/calculator/calculator.h"

#include "utils/trim.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <utility>

namespace vask {
namespace {

// The rules of the converter, word for word: every token is searched for in the whole rest, and
// signs are merged by recursion. Slow, and right by reading.
struct CPlainConverter {
  struct SToken {
    std::string text;
    int kind = 0;  // 1 operator, 3 and 4 brackets, 5 value
    std::size_t end = 0;
  };

  SToken Next(const std::string& rest) {
    SToken token;
    std::size_t best = std::string::npos;
    const auto look = [&](const std::string& text, int kind) {
      if (const auto found = rest.find(text); found < best) {
        best = found;
        token = {text, kind, found + text.size()};
      }
    };
    for (const auto& [text, priority] : priorities) {
      look(text, text == "(" ? 3 : text == ")" ? 4 : 1);
    }
    const bool isSign = (token.text == "+" || token.text == "-") && previous < 4;
    if (rest.find_first_not_of(" \t") < best) {
      token = {std::string(Trim(rest.substr(0, best))), 5, std::min(best, rest.size())};
    } else if (isSign && token.end < rest.size()) {
      if (const SToken next = Next(rest.substr(token.end)); next.kind == 5) {
        token = {token.text + next.text, 5, token.end + next.end};
      }
    }
    previous = token.kind;
    return token;
  }

  std::string Convert(const std::string& infix) {
    std::string output;
    std::vector<std::string> stack;
    const auto popWhile = [&](const std::function<bool()>& condition) {
      for (; !stack.empty() && condition(); stack.pop_back()) {
        output += stack.back() + " ";
      }
    };
    previous = 0;
    std::string rest(Trim(infix));
    for (SToken t = Next(rest); !t.text.empty(); rest.erase(0, t.end), t = Next(rest)) {
      popWhile([&] {
        const bool binds = t.kind == 1 && priorities[stack.back()] >= priorities[t.text];
        return stack.back() != "(" && (t.kind == 4 || binds);
      });
      t.kind == 5 ? void(output += t.text + " ") : void();
      t.kind == 1 || t.kind == 3 ? stack.push_back(t.text) : void();
      t.kind == 4 && !stack.empty() ? stack.pop_back() : void();
    }
    popWhile([] { return true; });
    return output;
  }

  std::map<std::string, int> priorities{{"+", 0},    {"-", 0},   {"*", 1},   {"/", 1},
                                        {"^", 2},    {"sin", 2}, {"cos", 2}, {"tan", 2},
                                        {"sqrt", 2}, {"(", 0},   {")", 0}};
  int previous = 0;
};

TEST(Calculator, ConvertsAsThePlainRules) {
  const char* const pieces[] = {"1",        "2.5", "-",   "-",   "+",   "*",   "/",
                                "^",        "(",   "(",   ")",   " ",   "\t",  "x",
                                "distance", "7 8", "sin", "cos", "tan", "sqrt"};
  std::mt19937 random(1);
  CInfixToPostfix converter;
  for (const char* text : {"sin", "cos", "tan", "sqrt", "^"}) {
    converter.AddOperator(text, 2);
  }
  for (int round = 0; round < 20'000; ++round) {
    std::string infix;
    for (auto length = random() % 12; length > 0; --length) {
      infix += pieces[random() % std::size(pieces)];
    }
    ASSERT_EQ(converter.Convert(infix), CPlainConverter().Convert(infix)) << "\"" << infix << "\"";
  }
}

// clang-format off
TEST(Calculator, Evaluates) {
  const std::pair<const char*, double> cases[] = {
      {"", 0}, {" \t ", 0}, {"3 + 4 * 2", 11}, {"2 - 3 - 4", -5}, {"2 ^ 3 ^ 2", 64},
      {"2 ^ 0.5", std::sqrt(2.0)}, {"-5 + 3", -2}, {"3 * -2", -6}, {"3 * - 2", -6}, {"3--2", 5},
      {"3---2", 3},  // "--2" is a value that does not read
      {"-(2 + 3)", -5}, {"2*-sin(1)", -std::sin(1.0)}, {"sqrt(16) * 2", 8}, {"sin(0)", 0},
      {"cos(0) + tan(1)", 1 + std::tan(1.0)}, {"10 / 0", 0}, {"7 / 2", 3.5}, {"2 *", 0},
      {"(1 + 2", 3}, {"1 + 2)", 3}, {"x + 1", 1}, {"distance + 1", 1}, {"+", 0}, {"1..5 + 1", 2},
  };
  for (const auto& [text, value] : cases) {
    // What malformed text leaves on the stack would reach into the next case.
    EXPECT_DOUBLE_EQ(CCalculator<double>().Calculate(text), value) << text;
    EXPECT_FLOAT_EQ(CCalculator<float>().Calculate(text), static_cast<float>(value)) << text;
  }
}

TEST(Calculator, IntegersNeverTrap) {
  const int least = std::numeric_limits<int>::min();
  const std::pair<const char*, int> cases[] = {
      {"7 2 /", 3}, {"-7 2 / ", -3}, {"10 0 /", 0}, {"-2147483648 -1 /", least}, {"4 -", -4},
      {"2147483647 1 +", least}, {"65536 65536 *", 0}, {"2 0.5 ^", 0}, {"2 3 sin", 3}, {"+ 1", 1},
  };
  for (const auto& [postfix, value] : cases) {
    EXPECT_EQ(CPostfix<int>().Evaluate(postfix), value) << postfix;
  }
}
// clang-format on

TEST(Calculator, LeftoverValuesStayAndHugeExpressionsEnd) {
  const std::string::size_type size = 1 << 18;
  const std::string signs(size, '-');
  CCalculator<double> calculator;
  EXPECT_EQ(calculator.Calculate("2 3"), 3);
  EXPECT_EQ(calculator.Calculate("*5"), 10);
  EXPECT_EQ(calculator.Calculate("*5"), 0);
  EXPECT_EQ(calculator.Calculate(signs + "5"), 0) << "one value, which does not read";
  EXPECT_EQ(calculator.Calculate(signs + "(5)"), -5) << "all but one lack an operand";
  EXPECT_EQ(calculator.Calculate(std::string(size, '(') + "6"), 6);
}

}  // namespace
}  // namespace vask
