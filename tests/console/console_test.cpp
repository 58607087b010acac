#include "console/console.h"

#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "support/logcapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

namespace vask {
namespace {

// Tells how it was called: "bare", or its parameters with their kinds, as "[n:10][s:abc]".
struct CEcho : CConsoleCommand {
  std::string Execute(CConsoleParams* params) override {
    std::string text;
    for (int i = 0; i < params->Size(); ++i) {
      text += (params->IsType(i, CVariable::kNumber) ? "[n:" : "[s:") + params->GetString(i) + "]";
    }
    calls += text + "\n";
    return text.empty() ? "none" : text;
  }
  std::string Execute() override {
    calls += "bare\n";
    return "bare";
  }
  std::string calls;
};

class ConsoleTest : public testing::Test {
 protected:
  ConsoleTest() { console.AddCommand("Echo", &echo); }

  // Lines, executed in turn, and their results.
  void ExpectResults(const std::vector<std::pair<const char*, const char*>>& lines) {
    for (const auto& [line, result] : lines) {
      EXPECT_EQ(console.Execute(line, false), result) << "\"" << line << "\"";
    }
  }

  const test::CLogCapture log;
  CEcho echo;
  CConsole console;
};

// clang-format off
TEST_F(ConsoleTest, ParsesParameters) {
  ExpectResults({
      {"echo(10, -2.5, .5, abc, \"a b\", 1e5,)", "[n:10][n:-2.5][n:0.5][s:abc][s:a b][s:1e5]"},
      {" \tECHO ", "bare"}, {"eChO (1)", "[n:1]"}, {"ech", "ech"},
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
  int number = 3;
  console.RegisterVariable("number", number);
  ExpectResults({
      {" two words\t", "two words"}, {"x = 5", "5"}, {"X", "5"},
      {"a = b= \t7 ", "7"}, {"a", "7"}, {"b", "7"}, {"c = echo(1, x)", "[n:1][s:x]"},
      {"d = a", "7"},  // the value is executed: a variable's name gives its value
      {"e =", ""}, {"e", ""}, {"g = echo(h = 3)", "[s:h = 3]"}, {"h", "h"}, {"k = 1; k", "1\n1\n"},
      {"l = (m = 2", "2"}, {"l", "2"}, {"o == 3", ""}, {"o", ""}, {"r=q = echo(s)", "[s:s]"}, {"r", "[s:s]"},
      {"=f", ""}, {"f", ""},  // an empty piece is dropped, so the name stands behind the sign
      {"number = ten", "3"}, {"number = 2147483648", "3"},
      {"text = number = 12.9", "12"}, {"text", "12"},
  });
  EXPECT_EQ(number, 12);
}
// clang-format on

TEST_F(ConsoleTest, LinesOfAMegabyteEndSoonAndDoNotNest) {
  for (const char* unit : {"a=", "a =( ", "=", ";", "a;", "::", "a::", "/", "\"", "(", ")", "()",
                           "echo(", "echo=", "1,", " ", "a=b;", "x = y = "}) {
    std::string line;
    while (line.size() < 1000000) {
      line += unit;
    }
    CConsole fresh;  // a word must not read a megabyte that an earlier line has stored under it
    fresh.AddCommand("echo", &echo);
    fresh.Execute(line, false);
  }
}

// As a key does that binds itself anew.
TEST_F(ConsoleTest, ACommandMayFreeTheLineThatItStandsIn) {
  struct CForget : CConsoleCommand {
    std::string Execute() override { return std::string().swap(line), "forgotten"; }
    std::string line = "forget; a rather long name = forget // and a comment";
  } forget;
  console.AddCommand("forget", &forget);
  EXPECT_EQ(console.Execute(forget.line, false), "forgotten\nforgotten\n");
}

struct CLoad : CConsoleCommand {
  explicit CLoad(CConsole& itsConsole) : console(itsConsole) {}
  std::string Execute(CConsoleParams* p) override { return console.ExecuteFile(p->GetString(0)); }
  std::string Execute() override { return {}; }
  CConsole& console;
};

TEST_F(ConsoleTest, ScriptsExecuteEveryLine) {
  std::ofstream("lines.txt") << "echo(1)\r\n\n// no\n  echo( two )\necho\r\nx = a\r\ny = b\r";
  for (const char* name : {"lines.txt", "missing.txt", ".", ""}) {
    EXPECT_EQ(console.ExecuteFile(name), "") << name;
  }
  EXPECT_EQ(echo.calls, "[n:1]\n[s:two]\nbare\n");
  EXPECT_EQ(console.GetVariable("x") + console.GetVariable("y"), "ab\r");
  EXPECT_TRUE(log.Lines().empty());
}

TEST_F(ConsoleTest, ScriptsNeverNestEndlessly) {
  CConsole second;  // files load each other through it, as from a task's console
  CLoad load[] = {CLoad(second), CLoad(console)};
  console.AddCommand("load", &load[0]);
  second.AddCommand("load", &load[1]);
  second.AddCommand("echo", &echo);
  std::filesystem::create_symlink("self.txt", "link.txt");
  std::ofstream("self.txt") << "load(self.txt)\nload(././self.txt)\nload(link.txt)\necho";
  for (std::size_t round = 1; round <= 2; ++round) {  // an ended file may be executed again
    console.ExecuteFile("self.txt");
    EXPECT_EQ(log.Lines().size(), 3 * round) << log.Text();
  }
  EXPECT_EQ(std::exchange(echo.calls, {}), "bare\nbare\n");
  for (int i = 1; i <= 66; ++i) {
    std::ofstream("deep" + std::to_string(i)) << "echo(1)\nload(deep" << i + 1 << ")\n";
  }
  console.ExecuteFile("deep1");
  EXPECT_EQ(std::count(echo.calls.begin(), echo.calls.end(), '1'), 64);
  EXPECT_TRUE(log.Has("deep65"));
}

}  // namespace
}  // namespace vask
