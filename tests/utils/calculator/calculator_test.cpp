#include "utils/calculator/calculator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace vask {
namespace {

// The rules of the converter, word for word: every token is searched for in the whole rest, and
// signs are merged by recursion. Slow, and right by reading.
struct CPlainConverter {
  std::map<std::string, int> priorities{{"+", 0},   {"-", 0},   {"*", 1},   {"/", 1},   {"^", 2},
                                        {"sin", 2}, {"cos", 2}, {"tan", 2}, {"sqrt", 2}};
  int previous = 0;

  static std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(" \t") - first + 1);
  }

  std::string Next(const std::string& rest, int& kind, std::size_t& end) {
    kind = 0;
    if (rest.empty()) {
      return "";
    }
    std::size_t best = std::string::npos;
    std::string token;
    const auto look = [&](const std::string& text, int itsKind) {
      if (const auto found = rest.find(text); found < best) {
        best = found;
        token = text;
        kind = itsKind;
        end = found + text.size();
      }
    };
    for (const auto& [text, priority] : priorities) {
      look(text, 1);
    }
    look("(", 3);
    look(")", 4);
    if (rest.find_first_not_of(" \t") < best) {
      token = Trimmed(rest.substr(0, best));
      kind = 5;
      end = std::min(best, rest.size());
    } else if (kind == 1 && (token == "+" || token == "-") &&
               (previous == 0 || previous == 1 || previous == 3) && end < rest.size()) {
      int nextKind = 0;
      std::size_t nextEnd = 0;
      const std::string next = Next(rest.substr(end), nextKind, nextEnd);
      if (nextKind == 5) {
        token += next;
        kind = 5;
        end += nextEnd;
      }
    }
    previous = kind;
    return token;
  }

  std::string Convert(const std::string& infix) {
    std::string output;
    std::string rest = Trimmed(infix);
    std::vector<std::string> stack;
    const auto pop = [&] {
      output += stack.back() + " ";
      stack.pop_back();
    };
    previous = 0;
    for (;;) {
      int kind = 0;
      std::size_t end = rest.size();
      const std::string token = Next(rest, kind, end);
      if (token.empty()) {
        break;
      }
      rest.erase(0, end);
      if (kind == 5) {
        output += token + " ";
        continue;
      }
      while (kind != 3 && !stack.empty() && stack.back() != "(" &&
             (kind == 4 || priorities[stack.back()] >= priorities[token])) {
        pop();
      }
      if (kind != 4) {
        stack.push_back(token);
      } else if (!stack.empty()) {
        stack.pop_back();
      }
    }
    while (!stack.empty()) {
      pop();
    }
    return output;
  }
};

CInfixToPostfix FullConverter() {
  CInfixToPostfix converter;
  for (const char* text : {"sin", "cos", "tan", "sqrt", "^"}) {
    converter.AddOperator(text, 2);
  }
  return converter;
}

TEST(Calculator, ConvertsAsThePlainRules) {
  const char* const pieces[] = {"1",        "2.5", "-",   "-",   "+",   "*",   "/",
                                "^",        "(",   "(",   ")",   " ",   "\t",  "x",
                                "distance", "7 8", "sin", "cos", "tan", "sqrt"};
  std::mt19937 random(1);
  CInfixToPostfix converter = FullConverter();
  CPlainConverter plain;
  for (int round = 0; round < 20'000; ++round) {
    std::string infix;
    for (auto length = random() % 12; length > 0; --length) {
      infix += pieces[random() % std::size(pieces)];
    }
    ASSERT_EQ(converter.Convert(infix), plain.Convert(infix)) << "\"" << infix << "\"";
  }
}

TEST(Calculator, Evaluates) {
  const struct {
    const char* expression;
    double value;
  } cases[] = {
      {"", 0},
      {" \t ", 0},
      {"3 + 4 * 2", 11},
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
      {"sin(0)", 0},
      {"cos(0) + tan(1)", 1 + std::tan(1.0)},
      {"10 / 0", 0},
      {"7 / 2", 3.5},
      {"2 *", 0},
      {"(1 + 2", 3},
      {"1 + 2)", 3},
      {"x + 1", 1},
      {"distance + 1", 1},
      {"+", 0},
      {"1..5 + 1", 2},
  };
  for (const auto& c : cases) {
    // What malformed text leaves on the stack would reach into the next case.
    EXPECT_DOUBLE_EQ(CCalculator<double>().Calculate(c.expression), c.value) << c.expression;
    EXPECT_FLOAT_EQ(CCalculator<float>().Calculate(c.expression), static_cast<float>(c.value))
        << c.expression;
  }
}

TEST(Calculator, LeftoverValuesStayForLaterEvaluations) {
  CCalculator<double> calculator;
  EXPECT_EQ(calculator.Calculate("2 3"), 3);
  EXPECT_EQ(calculator.Calculate("*5"), 10);
  EXPECT_EQ(calculator.Calculate("*5"), 0);
}

TEST(Calculator, IntegersNeverTrap) {
  const int least = std::numeric_limits<int>::min();
  const struct {
    const char* postfix;
    int value;
  } cases[] = {
      {"7 2 /", 3},         {"-7 2 / ", -3},
      {"10 0 /", 0},        {"-2147483648 -1 /", least},
      {"4 -", -4},          {"2147483647 1 +", least},
      {"65536 65536 *", 0}, {"2 0.5 ^", 0},
      {"2 3 sin", 3},       {"+ 1", 1},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CPostfix<int>().Evaluate(c.postfix), c.value) << c.postfix;
  }
}

TEST(Calculator, HugeExpressions) {
  const std::string::size_type size = 1 << 18;
  const std::string signs(size, '-');
  CCalculator<double> calculator;
  EXPECT_EQ(calculator.Calculate(signs + "5"), 0) << "one value, which does not read";
  EXPECT_EQ(calculator.Calculate(signs + "(5)"), -5) << "all but one lack an operand";
  EXPECT_EQ(calculator.Calculate(std::string(size, '(') + "6"), 6);
  std::string sum = "1";
  for (int i = 0; i < 100'000; ++i) {
    sum += "+(1*1)";
  }
  EXPECT_EQ(calculator.Calculate(sum), 100'001);
}

}  // namespace
}  // namespace vask
