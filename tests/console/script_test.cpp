#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "console/cmdlib.h"
#include "console/commandfactory.h"
#include "console_support.h"
#include "support/logcapture.h"

namespace vask {
namespace {

using test::CEcho;

void WriteFile(const std::string& name, const std::string& text) {
  std::ofstream(name, std::ios::binary) << text;
}

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
  test::CLogCapture log;
  CConsole console;
  CConsole second;
  CLoad loadFirst{console};
  CLoad loadSecond{second};
};

TEST_F(ScriptTest, ExecutesEveryLineAndTakesOnlyTheLineEndsOff) {
  WriteFile("lines.txt", "echo(1)\r\n\n// no\n  echo( two )\necho\r\nx = a\r\r\ny = b\r");
  for (const char* name : {"lines.txt", "missing.txt", ".", ""}) {
    EXPECT_EQ(console.ExecuteFile(name), "") << name;
  }
  EXPECT_EQ(echo.calls, (std::vector<std::string>{"[n:1]", "[s:two]", "bare"}));
  EXPECT_EQ(console.GetVariable("x") + console.GetVariable("y"), "a\rb\r");
  EXPECT_TRUE(log.Lines().empty());
}

TEST_F(ScriptTest, AFileThatIsBeingExecutedIsRefusedUnderEveryName) {
  std::filesystem::create_directories("folder");
  std::filesystem::create_symlink("../self.txt", "folder/link.txt");
  WriteFile("self.txt", "load(self.txt)\nload(./folder/../self.txt)\nload(folder/link.txt)\necho");
  for (std::size_t round = 1; round <= 2; ++round) {  // an ended file may be executed again
    console.ExecuteFile("self.txt");
    EXPECT_EQ(log.Count("self.txt"), 2 * round);
    EXPECT_EQ(log.Count("folder/link.txt"), round);
    EXPECT_EQ(echo.calls.size(), round);
  }
  EXPECT_EQ(log.Lines().front().level, kLogError);
}

TEST_F(ScriptTest, FilesNestSixtyFourDeepAndNoDeeper) {
  for (int i = 1; i <= 66; ++i) {
    WriteFile("deep" + std::to_string(i),
              "echo(" + std::to_string(i) + ")\nload(deep" + std::to_string(i + 1) + ")\n");
  }
  console.ExecuteFile("deep1");
  EXPECT_EQ(echo.calls.back(), "[n:64]");
  EXPECT_EQ(log.Lines().size(), 1U);
}

TEST(CommandFactory, LibrariesAttachDetachAndKeepTheirFirstCommands) {
  CCommandFactory& factory = CCommandFactory::GetSingleton();
  CEcho own;
  {
    CConsole console;
    auto first = std::make_unique<CEcho>();
    const CEcho* kept = first.get();
    factory.AddCommand("lib", "one", std::move(first));
    factory.AddCommand("lib", "one", std::make_unique<CEcho>());
    factory.LoadLib("Lib", &console);
    EXPECT_TRUE(console.GetCommands().empty());
    factory.LoadLib("lib", &console);
    factory.AddCommand("lib", "late", std::make_unique<CEcho>());
    EXPECT_EQ(console.GetCommand("one"), kept);
    EXPECT_EQ(console.GetCommand("late"), nullptr);
    factory.LoadLib("lib", &console);
    EXPECT_NE(console.GetCommand("late"), nullptr);
    factory.Forget(&console);
    EXPECT_TRUE(console.GetCommands().empty());
    console.AddCommand("one", &own);
    factory.Forget(&console);  // no longer loaded: leaves the console's own commands alone
    EXPECT_EQ(console.GetCommand("one"), &own);
    factory.LoadLib("lib", &console);  // and the console dies
  }
  CCommandFactory::DeleteSingleton();
  const CConsole late;
  EXPECT_EQ(CCommandFactory::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace vask
