#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "console/cmdlib.h"
#include "console/commandfactory.h"
#include "console_support.h"
#include "support/logcapture.h"

namespace vask {
namespace {

using test::CEcho;
using test::CLogCapture;
using test::WriteFile;

// Executes a file on a console of its own, as a script's "load" does from a task's console.
class CLoad : public CConsoleCommand {
 public:
  explicit CLoad(CConsole& console) : myConsole(console) {}
  std::string Execute(CConsoleParams* params) override {
    return myConsole.ExecuteFile(params->GetString(0));
  }
  std::string Execute() override { return {}; }

 private:
  CConsole& myConsole;
};

class ScriptTest : public testing::Test {
 protected:
  ScriptTest() {
    for (CConsole* each : {&console, &second}) {
      each->AddCommand("echo", &echo);
    }
    console.AddCommand("load", &loadSecond);
    second.AddCommand("load", &loadFirst);
  }

  CEcho echo;
  CLogCapture log;
  CConsole console;
  CConsole second;
  CLoad loadFirst{console};
  CLoad loadSecond{second};
};

TEST_F(ScriptTest, ExecutesEveryLineAndTakesOnlyTheLineEndsOff) {
  WriteFile("lines.txt", "echo(1)\r\n\n// no\n  echo( two )\necho\r\necho(3)\r");
  EXPECT_EQ(console.ExecuteFile("lines.txt"), "");
  EXPECT_EQ(echo.calls, (std::vector<std::string>{"[n:1]", "[s:two]", "bare", "[n:3]"}));
  WriteFile("end.txt", "x = a\r\r\ny = b\r");
  console.ExecuteFile("end.txt");
  EXPECT_EQ(console.GetVariable("x") + console.GetVariable("y"), "a\rb\r");
}

TEST_F(ScriptTest, WhatCannotBeReadIsSilentlyNothing) {
  EXPECT_EQ(console.ExecuteFile("missing.txt"), "");
  EXPECT_EQ(console.ExecuteFile("."), "");
  EXPECT_EQ(console.ExecuteFile(""), "");
  EXPECT_TRUE(log.Lines().empty());
}

TEST_F(ScriptTest, AFileThatIsBeingExecutedIsRefusedUnderEveryName) {
  std::filesystem::create_directories("folder");
  std::filesystem::remove("folder/link.txt");
  std::filesystem::create_symlink("../self.txt", "folder/link.txt");
  WriteFile("self.txt",
            "load(self.txt)\nload(./folder/../self.txt)\nload(folder/link.txt)\necho\n");
  for (int round = 1; round <= 2; ++round) {  // an ended file may be executed again
    console.ExecuteFile("self.txt");
    EXPECT_EQ(log.Count("self.txt"), 2U * static_cast<unsigned>(round));
    EXPECT_EQ(log.Count("folder/link.txt"), static_cast<unsigned>(round));
    EXPECT_EQ(echo.calls.size(), static_cast<unsigned>(round));
  }
  EXPECT_EQ(log.Lines().front().level, kLogError);
}

TEST_F(ScriptTest, FilesNestSixtyFourDeepAndNoDeeper) {
  for (int i = 1; i <= 66; ++i) {
    const std::string number = std::to_string(i);
    WriteFile("deep" + number + ".txt",
              "echo(" + number + ")\nload(deep" + std::to_string(i + 1) + ".txt)\n");
  }
  console.ExecuteFile("deep1.txt");
  EXPECT_EQ(echo.calls.back(), "[n:64]");
  EXPECT_EQ(log.Lines().size(), 1U);
  EXPECT_TRUE(log.Has("deep65.txt"));
}

TEST(CommandLibrary, TheFirstCommandOfANameStays) {
  CConsole console;
  CCmdLib library("lib");
  auto first = std::make_unique<CEcho>();
  CEcho* kept = first.get();
  library.AddCommand("one", std::move(first));
  library.AddCommand("one", std::make_unique<CEcho>());
  library.AttachTo(&console);
  library.AddCommand("late", std::make_unique<CEcho>());
  EXPECT_EQ(console.GetCommand("one"), kept);
  EXPECT_EQ(console.GetCommand("late"), nullptr);
  library.AttachTo(&console);
  EXPECT_NE(console.GetCommand("late"), nullptr);
  library.Detach(&console);
  EXPECT_TRUE(console.GetCommands().empty());
  CEcho own;
  console.AddCommand("one", &own);
  library.Detach(&console);  // no longer loaded: leaves the console's own commands alone
  EXPECT_EQ(console.GetCommand("one"), &own);
}

TEST(CommandFactory, AConsoleThatDiesLeavesItsLibraries) {
  CCommandFactory& factory = CCommandFactory::GetSingleton();
  factory.AddCommand("test", "echo", std::make_unique<CEcho>());
  {
    CConsole console;
    factory.LoadLib("Test", &console);
    EXPECT_TRUE(console.GetCommands().empty());
    factory.LoadLib("test", &console);
    EXPECT_EQ(console.Execute("echo", false), "bare");
  }
  CCommandFactory::DeleteSingleton();
  const CConsole late;  // and does not raise the factory again
}

}  // namespace
}  // namespace vask
