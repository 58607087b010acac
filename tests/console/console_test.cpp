#include "console/console.h"

#include "console/commandfactory.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "support/logcapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace vask {
namespace {

// Returns how it was called: "bare", or its parameters with their types, as "[n:10][s:abc]".
struct CEcho : CConsoleCommand {
  std::string Execute(CConsoleParams* params) override {
    std::string text;
    for (int i = 0; i < params->Size(); ++i) {
      text += (params->IsType(i, CVariable::kNumber) ? "[n:" : "[s:") + params->GetString(i) + "]";
    }
    myCalls += text + "\n";
    return text.empty() ? "none" : text;
  }
  std::string Execute() override {
    myCalls += "bare\n";
    return "bare";
  }
  std::string myCalls;
};

TEST(Variable, EachKindTakesTextAndNumbers) {
  CVariableString text;
  text.SetNumber(1234567);
  EXPECT_EQ(text.GetString(), "1.23457e+06");
  CVariableNumber number;
  number.SetString("2.5 x");
  EXPECT_EQ(number.GetNumber(), 2.5);
  EXPECT_TRUE(CVariable().IsType(CVariable::kNone));
}

struct ConsoleTest : testing::Test {
  ConsoleTest() { myConsole.AddCommand("Echo", &myEcho); }

  std::string Run(const std::string& line) { return myConsole.Execute(line, false); }

  const test::CLogCapture myLog;
  CEcho myEcho;
  CConsole myConsole;
};

TEST_F(ConsoleTest, ParsesParameters) {
  EXPECT_EQ(Run("any::echo"), "bare");
  EXPECT_EQ(Run(R"(echo("a,b",","","))"), R"([s:"a][s:b"][s:"][s:][s:"])");
  EXPECT_EQ(Run(R"(echo(""x"", ""))"), R"([s:"x"][s:])");
  EXPECT_EQ(Run("echo(f(1),(2))b)c"), "[s:f(1)][s:(2))b]");
  EXPECT_EQ(Run("echo( ,+3, -, ., +-, 1-2, 1.2.3, 5.)"),
            "[n:0][n:3][n:0][n:0][n:0][n:1][n:1.2][n:5]");
  EXPECT_EQ(Run("echo(10px, 0x10, inf, nan, 1 2)"), "[s:10px][s:0x10][s:inf][s:nan][s:1 2]");
  EXPECT_EQ(Run("echo(1234567, 0.1234567)"), "[n:1.23457e+06][n:0.123457]");
}

TEST_F(ConsoleTest, AssignsAndReads) {
  int number = 3;
  myConsole.RegisterVariable("number", number);
  EXPECT_EQ(Run("a ="), "");
  EXPECT_EQ(Run("a = echo (h = 3); a"), "[s:h = 3]\n[s:h = 3]\n");
  EXPECT_EQ(Run("number = 2147483648"), "3");
  EXPECT_EQ(Run("text = number = 12.9"), "12");
  EXPECT_EQ(Run("text"), "12");
  EXPECT_EQ(number, 12);
}

TEST_F(ConsoleTest, VeryManyVariablesComeAndGo) {
  for (int i = 0; i < 3000; ++i) {
    myConsole.SetVariable(std::to_string(i), "set");
    myConsole.RemoveVariable(std::to_string(i / 2));
  }
  for (int i = 0; i < 3000; ++i) {
    ASSERT_EQ(myConsole.GetVariable(std::to_string(i)), i < 1500 ? "" : "set") << i;
  }
}

TEST_F(ConsoleTest, ALibraryIsLoadedAndTakenBack) {
  CCommandFactory factory;
  factory.AddCommand("lib", "one", std::make_unique<CEcho>());
  factory.LoadLib("lib", &myConsole);
  factory.AddCommand("lib", "two", std::make_unique<CEcho>());
  factory.LoadLib("lib", &myConsole);
  EXPECT_EQ(myConsole.GetCommandNames(), (std::vector<std::string>{"echo", "one", "two"}));
  factory.Forget(&myConsole);
  EXPECT_EQ(myConsole.GetCommandNames(), std::vector<std::string>{"echo"});
}

// Each would take minutes, or the whole stack, if the work grew faster than the line.
TEST_F(ConsoleTest, LinesOfAMegabyteEndSoonAndDoNotNest) {
  for (const char* unit : {"a=", "a =( ", "=", ";", "a;", "::", "a::", "/", "\"", "(", ")", "()",
                           "echo(", "echo=", "1,", " ", "a=b;", "x = y = "}) {
    std::string line;
    while (line.size() < 1000000) {
      line += unit;
    }
    CConsole fresh;  // a word must not read a megabyte that an earlier line has stored under it
    fresh.AddCommand("echo", &myEcho);
    fresh.Execute(line, false);
    EXPECT_EQ(fresh.Execute("echo", false), "bare") << "it goes on after " << unit;
  }
}

struct CLoad : CConsoleCommand {
  explicit CLoad(CConsole& c) : console(c) {}
  std::string Execute(CConsoleParams* p) override { return console.ExecuteFile(p->GetString(0)); }
  std::string Execute() override { return {}; }
  CConsole& console;
};

TEST_F(ConsoleTest, ScriptsExecuteEveryLine) {
  std::ofstream("lines.txt") << "echo(1)\r\n\n// no\n  echo( two )\necho\r\nx = a\r\ny = b\r";
  for (const char* name : {"lines.txt", "missing.txt", ".", ""}) {
    EXPECT_EQ(myConsole.ExecuteFile(name), "") << name;
  }
  EXPECT_EQ(myEcho.myCalls, "[n:1]\n[s:two]\nbare\n");
  EXPECT_EQ(myConsole.GetVariable("x"), "a");
  EXPECT_EQ(myConsole.GetVariable("y"), "b\r");
  EXPECT_EQ(myLog.Text(), "");
}

TEST_F(ConsoleTest, CaseCountsOnceItIsToldTo) {
  myConsole.SetCaseSensitive(true);
  Run("x = 1");
  EXPECT_EQ(Run("X"), "X");
  EXPECT_TRUE(myConsole.IsCaseSensitive());
}

TEST_F(ConsoleTest, ScriptsNeverNestEndlessly) {
  CConsole second;  // files load each other through it, as from a task's console
  CLoad loadInSecond(second);
  CLoad loadInFirst(myConsole);
  myConsole.AddCommand("load", &loadInSecond);
  second.AddCommand("load", &loadInFirst);
  second.AddCommand("echo", &myEcho);
  std::filesystem::create_symlink("self.txt", "link.txt");
  std::ofstream("self.txt") << "load(././self.txt)\nload(link.txt)\necho";
  myConsole.ExecuteFile("self.txt");
  myConsole.ExecuteFile("self.txt");  // an ended file may be executed again
  EXPECT_EQ(myLog.Lines().size(), 2 * 2U) << myLog.Text();
  EXPECT_EQ(std::exchange(myEcho.myCalls, {}), "bare\nbare\n");
  for (int i = 1; i <= 66; ++i) {
    std::ofstream("deep" + std::to_string(i)) << "echo(1)\nload(deep" << i + 1 << ")\n";
  }
  myConsole.ExecuteFile("deep1");
  EXPECT_EQ(std::ranges::count(myEcho.myCalls, '1'), 64);
  EXPECT_TRUE(myLog.Has("deep65"));
}

}  // namespace
}  // namespace vask
