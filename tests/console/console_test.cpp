#include "console/console.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "console_support.h"
#include "utils/trim.h"

namespace vask {
namespace {

using test::CEcho;

class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() { console.AddCommand("Echo", &echo); }

  // Lines, executed in turn, and their results.
  void ExpectResults(const std::vector<std::pair<const char*, const char*>>& lines) {
    for (const auto& [line, result] : lines) {
      EXPECT_EQ(console.Execute(line, false), result) << "\"" << line << "\"";
    }
  }

  CEcho echo;
  CConsole console;
};

TEST_F(ConsoleTest, NamesMatchWithoutCaseUnlessToldOtherwise) {
  ExpectResults({{"echo", "bare"}, {" \tECHO ", "bare"}, {"eChO (1)", "[n:1]"}, {"ech", "ech"}});
  console.SetCaseSensitive(true);
  console.AddCommand("Strict", &echo);
  ExpectResults({{"Strict", "bare"}, {"strict", "strict"}, {"STRICT()", "STRICT()"}});
}

// clang-format off
TEST_F(ConsoleTest, ParsesParameters) {
  ExpectResults({
      {"echo(10, -2.5, .5, abc, \"a b\", 1e5,)", "[n:10][n:-2.5][n:0.5][s:abc][s:a b][s:1e5]"},
      {"echo()", "none"}, {"echo(", "bare"}, {"echo)(1)", "echo)(1)"},
      {"echo(\"a,b\")", "[s:\"a][s:b\"]"}, {"echo(\",\"\")", "[s:\"][s:]"},
      {"echo(\"\"x\"\")", "[s:\"x\"]"}, {"echo(f(1),(2))", "[s:f(1)][s:(2)]"},
      {"echo(a)b)c", "[s:a)b]"}, {"echo(,,1,,2,,)", "[n:1][n:2]"}, {"echo( ,\t)", "[n:0][n:0]"},
      {"echo(+3, -, ., +-, 1-2, 1.2.3, 5.)", "[n:3][n:0][n:0][n:0][n:1][n:1.2][n:5]"},
      {"echo(10px, 0x10, inf, nan, 1 2)", "[s:10px][s:0x10][s:inf][s:nan][s:1 2]"},
      {"echo(1234567, 0.1234567)", "[n:1.23457e+06][n:0.123457]"},
  });
}

TEST_F(ConsoleTest, SpecialLines) {
  ExpectResults({
      {"", ""}, {" \t ", ""}, {"// echo(1)", ""}, {"  // x; echo(1)", ""},
      {"echo(1) // why", "[n:1]"}, {"echo(1); echo(2) // and; this", "[n:1]\n[n:2]\n"},
      {"echo(1) // a;b", "[n:1]\n"}, {";;echo;;word;", "bare\nword\n"}, {"; ;", "\n"},
      {"space::echo(1)", "[n:1]"}, {"space::echo(1)::echo(2)", "[n:1]"}, {"::echo(1)", ""},
      {"::", ""}, {"a::word;echo", "word\nbare\n"}, {"echo(1) // a::b", ""},
      {"echo(http://x)", "bare"},
  });
}

TEST_F(ConsoleTest, AssignsAndReads) {
  bool flag = false;
  int number = 3;
  console.RegisterVariable("flag", flag);
  console.RegisterVariable("number", number);
  ExpectResults({
      {" two words\t", "two words"}, {"x = 5", "5"}, {"X", "5"},
      {"a = b= \t7 ", "7"}, {"a", "7"}, {"b", "7"}, {"c = echo(1, x)", "[n:1][s:x]"},
      {"d = a", "7"},  // the value is executed: a variable's name gives its value
      {"e =", ""}, {"e", ""},
      {"=f", ""}, {"f", ""},  // an empty piece is dropped, so the name stands behind the sign
      {"g = echo(h = 3)", "[s:h = 3]"}, {"h", "h"}, {"k = 1; k", "1\n1\n"},
      {"flag = 1", "1"}, {"number = ten", "3"}, {"number = 2147483648", "3"},
      {"text = number = 12.9", "12"}, {"text", "12"},
  });
  EXPECT_TRUE(flag && number == 12);
  int second = 8;
  console.RegisterVariable("NUMBER", second);
  ExpectResults({{"number", "8"}});
}
// clang-format on

// The rules told plainly, right side by right side.
class CRecursiveConsole : public CConsole {
 public:
  std::string Execute(const std::string& line, bool) override {
    const std::string name(Trim(GetCommandName(line)));
    const bool isOwn = IsSpecialLine(line) || GetCommand(name) != nullptr;
    return isOwn ? CConsole::Execute(line, false) : ExecuteAssignment(line);
  }
  std::string ExecuteAssignment(const std::string& line) override {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) {
      return CConsole::ExecuteAssignment(line);
    }
    const std::string name(Trim(equals > 0 ? line.substr(0, equals) : line.substr(1)));
    names.push_back(name);
    SetVariable(name, equals > 0 ? std::string(Trim(Execute(line.substr(equals + 1), false))) : "");
    return GetVariable(name);
  }
  std::vector<std::string> names;
};

TEST_F(ConsoleTest, ChainsGiveWhatTheRecursiveRuleGives) {
  const char* const words[] = {"a", "b", "=",    "=",  "=", " ",  "\t", "(", ")",
                               ",", "1", "echo", "eq", ";", "::", "//", "\""};
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string line;
    for (auto length = random() % 14; length > 0; --length) {
      line += words[random() % std::size(words)];
    }
    CConsole tested;
    CRecursiveConsole reference;
    CEcho calls;
    CEcho expectedCalls;
    for (const char* name : {"echo", "eq", "a=b"}) {
      tested.AddCommand(name, &calls);
      reference.AddCommand(name, &expectedCalls);
    }
    ASSERT_EQ(tested.Execute(line, false), reference.Execute(line, false)) << line;
    ASSERT_EQ(tested.ExecuteAssignment(line), reference.ExecuteAssignment(line)) << line;
    ASSERT_EQ(calls.calls, expectedCalls.calls) << line;
    for (const std::string& name : reference.names) {
      ASSERT_EQ(tested.GetVariable(name), reference.GetVariable(name)) << line;
    }
  }
}

TEST_F(ConsoleTest, LinesOfAMegabyteEndSoonAndDoNotNest) {
  const std::clock_t start = std::clock();
  for (const char* unit : {"a=", "a =( ", "=", ";", "a;", "::", "a::", "/", "\"", "(", ")", "()",
                           "echo(", "echo=", "1,", " ", "a=b;", "x = y = "}) {
    std::string line;
    while (line.size() < 1000000) {
      line += unit;
    }
    const std::string part = line.substr(0, 250000);
    for (const std::string& whole : {line, part + "=echo(" + part + ")", "echo(" + part + ")"}) {
      CConsole fresh;  // a word must not read a megabyte that an earlier line has stored under it
      fresh.AddCommand("echo", &echo);
      fresh.Execute(whole, false);
    }
  }
  EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 60);
}

// Frees the line that is being executed, as a key does that binds itself anew.
class CForget : public CConsoleCommand {
 public:
  std::string Execute() override {
    std::string().swap(line);
    return "forgotten";
  }
  std::string line;
};

TEST_F(ConsoleTest, ACommandMayFreeTheLineThatItStandsIn) {
  CForget forget;
  console.AddCommand("forget", &forget);
  forget.line = "a rather long name = forget";
  EXPECT_EQ(console.Execute(forget.line, false), "forgotten");
  forget.line = "forget; another statement // and a comment";
  EXPECT_EQ(console.Execute(forget.line, false), "forgotten\nanother statement\n");
}

TEST(Variable, ConvertsBetweenTextAndNumber) {
  CVariableString text;
  text.SetNumber(1.0 / 3);
  EXPECT_EQ(text.GetString(), "0.333333");
  CVariableNumber number(4);
  number.SetString("none");
  EXPECT_EQ(number.GetString(), "4");
  const int most = 2147483647;
  for (const auto& [written, integer] : std::vector<std::pair<const char*, int>>{
           {"2.9 m", 2}, {"-2.9", -2}, {"2147483648", most}, {"1e999", most}, {"-1e999", ~most}}) {
    EXPECT_EQ(ToInteger(CVariableString(written).GetNumber()), integer) << written;
  }
  EXPECT_EQ(ToInteger(std::nan("")), 0);
}

}  // namespace
}  // namespace vask
