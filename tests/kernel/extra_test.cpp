#include "kernel/applicationfactory.h"
#include "support/tasks.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

class ExtraCommands : public testing::Test {
 protected:
  ~ExtraCommands() override { CApplicationFactory::DeleteSingleton(); }
  static std::string Execute(const std::string& line) {
    return CApplicationFactory::GetSingleton().GetConsole()->Execute(line, false);
  }
};

TEST_F(ExtraCommands, ToggleRunsItsLinesInTurnAndKeepsItsState) {
  EXPECT_EQ(Execute("toggle(_On, Z = one, z = two)"), "one");
  EXPECT_EQ(Execute("_on"), "1");
  EXPECT_EQ(Execute("TOGGLE(_on, z = one, z = two)"), "two");
  EXPECT_EQ(Execute("_on"), "0");
  EXPECT_EQ(Execute("toggle(_on, _on = -0.5, two)"), "-0.5") << "the line may say otherwise";
  EXPECT_EQ(Execute("toggle(_on, one, help(z))"), "z is a variable: two");
}

TEST_F(ExtraCommands, ToggleNeedsAVariableAndTwoLines) {
  for (const char* line : {"toggle", "toggle()", "toggle(_on, one)", "toggle(_on, f(1, 2), g)",
                           "toggle(_on, , two)", "toggle(_on, one, 2)", "toggle(\"\", one, two)"}) {
    EXPECT_EQ(Execute(line),
              "Error: Toggle( variable, line, line ) requires a variable and two "
              "lines without a comma.")
        << line;
  }
  EXPECT_EQ(Execute("_on"), "_on") << "still no variable";
}

TEST_F(ExtraCommands, HelpListsAndExplains) {
  EXPECT_EQ(Execute("z = 1; help"),
            "1\nCommands: help, load, pausetask, quit, resumetask, starttask, stoptask, taskload, "
            "toggle\nVariables: z\nhelp(name) tells more of one.\n");
  EXPECT_EQ(Execute("help(5)"), "There is no command or variable 5.");
  CConsole& console = *CApplicationFactory::GetSingleton().GetConsole();
  for (const std::string& name : console.GetCommandNames()) {
    EXPECT_TRUE(Execute("help(" + name + ")").starts_with(name)) << name;
  }
  EXPECT_FALSE(IsQuitting());
}

}  // namespace
}  // namespace vask::test
