#include "console/console.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "console_support.h"

namespace vask {
namespace {

using test::CEcho;

struct CLine {
  const char* line;
  const char* result;
};

class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() { console.AddCommand("Echo", &echo); }

  void ExpectResults(const std::vector<CLine>& lines) {
    for (const CLine& c : lines) {
      EXPECT_EQ(console.Execute(c.line, false), c.result) << "\"" << c.line << "\"";
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

TEST_F(ConsoleTest, ParsesParameters) {
  ExpectResults({
      {"echo(10, -2.5, .5, abc, \"a b\", 1e5,)", "[n:10][n:-2.5][n:0.5][s:abc][s:a b][s:1e5]"},
      {"echo", "bare"},
      {"echo()", "none"},
      {"echo(", "bare"},
      {"echo)(1)", "echo)(1)"},
      {"echo(\"a,b\")", "[s:\"a][s:b\"]"},
      {"echo(\",\"\")", "[s:\"][s:]"},
      {"echo(\"\"x\"\")", "[s:\"x\"]"},
      {"echo(f(1),(2))", "[s:f(1)][s:(2)]"},
      {"echo(a)b)c", "[s:a)b]"},
      {"echo(,,1,,2,,)", "[n:1][n:2]"},
      {"echo( ,\t)", "[n:0][n:0]"},
      {"echo(+3, -, ., +-, 1-2, 1.2.3, 5.)", "[n:3][n:0][n:0][n:0][n:1][n:1.2][n:5]"},
      {"echo(10px, 0x10, inf, nan, 1 2)", "[s:10px][s:0x10][s:inf][s:nan][s:1 2]"},
      {"echo(1234567, 0.1234567)", "[n:1.23457e+06][n:0.123457]"},
  });
}

TEST_F(ConsoleTest, SpecialLines) {
  ExpectResults({
      {"", ""},
      {" \t ", ""},
      {"// echo(1)", ""},
      {"  // x; echo(1)", ""},
      {"echo(1) // why", "[n:1]"},
      {"echo(1); echo(2) // and; this", "[n:1]\n[n:2]\n"},
      {"echo(1) // a;b", "[n:1]\n"},
      {";;echo;;word;", "bare\nword\n"},
      {"; ;", "\n"},
      {"space::echo(1)", "[n:1]"},
      {"space::echo(1)::echo(2)", "[n:1]"},
      {"::echo(1)", ""},
      {"::", ""},
      {"a::word;echo", "word\nbare\n"},
      {"echo(1) // a::b", ""},
      {"echo(http://x)", "bare"},
  });
}

TEST_F(ConsoleTest, AssignsAndReads) {
  ExpectResults({
      {"word", "word"},
      {" two words\t", "two words"},
      {"x = 5", "5"},
      {"X", "5"},
      {"a = b= \t7 ", "7"},
      {"a", "7"},
      {"b", "7"},
      {"c = echo(1, x)", "[n:1][s:x]"},
      {"c", "[n:1][s:x]"},
      {"d = a", "7"},  // the value is executed: a variable's name gives its value
      {"e =", ""},
      {"e", ""},
      {"=f", ""},  // an empty piece is dropped, so the name stands behind the sign
      {"f", ""},
      {"=", ""},
      {"g = echo(h = 3)", "[s:h = 3]"},
      {"h", "h"},
      {"k = 1; k", "1\n1\n"},
  });
}

TEST_F(ConsoleTest, VariablesOfTheProgramTakeWhatReadsAsTheirType) {
  bool flag = false;
  int number = 3;
  console.RegisterVariable("flag", flag);
  console.RegisterVariable("number", number);
  ExpectResults({{"flag = 1", "1"},
                 {"Flag", "1"},
                 {"number = ten", "3"},
                 {"number = 2147483648", "3"},
                 {"text = number = 12.9", "12"},
                 {"text", "12"}});
  EXPECT_TRUE(flag);
  EXPECT_EQ(number, 12);
  int second = 8;
  console.RegisterVariable("NUMBER", second);
  ExpectResults({{"number", "8"}});
  console.RemoveVariable("number");
  EXPECT_EQ(console.FindVariable("number"), nullptr);
}

// The rules told plainly, right side by right side.
class CRecursiveConsole : public CConsole {
 public:
  std::string Execute(const std::string& line, bool) override {
    const std::string name = GetCommandName(line);
    const bool isOwn = IsSpecialLine(line) || GetCommand(Trimmed(name)) != nullptr;
    return isOwn ? CConsole::Execute(line, false) : ExecuteAssignment(line);
  }
  std::string ExecuteAssignment(const std::string& line) override {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) {
      return CConsole::ExecuteAssignment(line);
    }
    const bool named = equals > 0;
    const std::string name = Trimmed(named ? line.substr(0, equals) : line.substr(1));
    SetVariable(name, named ? Trimmed(Execute(line.substr(equals + 1), false)) : "");
    return GetVariable(name);
  }

 private:
  static std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
  }
};

TEST_F(ConsoleTest, ChainsGiveWhatTheRecursiveRuleGives) {
  const std::vector<std::string> words = {"a", "b", "=",    "=",  "=", " ",  "\t", "(", ")",
                                          ",", "1", "echo", "eq", ";", "::", "//", "\""};
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string line;
    for (auto length = random() % 14; length > 0; --length) {
      line += words[random() % words.size()];
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
    ASSERT_EQ(tested.GetVariableNames(), reference.GetVariableNames()) << line;
    for (const std::string& name : tested.GetVariableNames()) {
      ASSERT_EQ(tested.GetVariable(name), reference.GetVariable(name)) << line;
    }
  }
}

TEST_F(ConsoleTest, LinesOfAMegabyteEndSoonAndDoNotNest) {
  const std::clock_t start = std::clock();
  for (const char* unit : {"a=", "a =( ", "=", ";", "a;", "::", "a::", "/", "\"", "(", ")", "()",
                           "echo(", "echo=", "1,", " ", "a=b;"}) {
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
  std::string chain;
  for (int i = 0; i < 100000; ++i) {
    chain += i % 2 == 0 ? "x = " : "y = ";
  }
  chain += "last = echo(5)";
  EXPECT_EQ(console.Execute(chain, false), "[n:5]");
  EXPECT_EQ(console.GetVariable("x") + console.GetVariable("y"), "[n:5][n:5]");
  EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 60);
}

// Frees the line that is being executed, as a key does that binds itself anew.
class CForget : public CConsoleCommand {
 public:
  explicit CForget(std::string& line) : myLine(line) {}
  std::string Execute() override {
    std::string().swap(myLine);
    return "forgotten";
  }

 private:
  std::string& myLine;
};

TEST_F(ConsoleTest, ACommandMayFreeTheLineThatItStandsIn) {
  std::string line;
  CForget forget(line);
  console.AddCommand("forget", &forget);
  line = "a rather long name = forget";
  EXPECT_EQ(console.Execute(line, false), "forgotten");
  line = "forget; another statement // and a comment";
  EXPECT_EQ(console.Execute(line, false), "forgotten\nanother statement\n");
}

TEST(Variable, ConvertsBetweenTextAndNumber) {
  CVariableString text("2.5 m");
  EXPECT_EQ(text.GetNumber(), 2.5);
  text.SetNumber(1.0 / 3);
  EXPECT_EQ(text.GetString(), "0.333333");
  CVariableNumber number(4);
  number.SetString("none");
  EXPECT_EQ(number.GetNumber(), 4);
  number.SetString("-1e3");
  EXPECT_EQ(number.GetString(), "-1000");
  const CVariable nothing;
  EXPECT_TRUE(nothing.IsType(CVariable::kNone) && !nothing.IsType(CVariable::kString));
}

TEST(Variable, IntegersTruncateAndSaturate) {
  struct CCase {
    const char* number;
    int integer;
  };
  for (const CCase& c : std::vector<CCase>{{"2.9", 2},
                                           {"-2.9", -2},
                                           {"2147483647", 2147483647},
                                           {"2147483648", 2147483647},
                                           {"-2147483649", -2147483647 - 1},
                                           {"1e999", 2147483647},
                                           {"-1e999", -2147483647 - 1}}) {
    EXPECT_EQ(ToInteger(CVariableString(c.number).GetNumber()), c.integer) << c.number;
  }
  EXPECT_EQ(ToInteger(std::stod("nan")), 0);
}

}  // namespace
}  // namespace vask
