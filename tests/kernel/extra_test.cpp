#include "kernel/applicationfactory.h"
#include "support/tasks.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

// clang-format off
TEST(ExtraCommands, AnswerAndRunWhatTheySay) {
  const std::string usage =
      "Error: Toggle( variable, line, line ) requires a variable and two lines without a comma.";
  const std::pair<std::string, std::string> lines[] = {
      {"toggle(_On, Z = one, z = two)", "one"}, {"_on", "1"}, {"TOGGLE(_on, z = one, z = two)", "two"}, {"_on", "0"},
      {"_on = no", "no"}, {"toggle(_on, one, two)", "one"}, {"_on = -0.5", "-0.5"}, {"toggle(_on, one, help(z))", "z is a variable: two"},
      {"toggle", usage}, {"toggle()", usage}, {"toggle(_on, one)", usage}, {"toggle(_on, f(1, 2), g)", usage},
      {"toggle(_on, , two)", usage}, {"toggle(\"\", one, two)", usage}, {"_on", "0"},
      {"help(none)", "There is no command or variable none."}, {"help(5)", "There is no command or variable 5."},
      {"help", "Commands: help, load, pausetask, quit, resumetask, starttask, stoptask, taskload, toggle\n"
               "Variables: _on, z\nhelp(name) tells more of one."},
  };
  CConsole& console = *CApplicationFactory::GetSingleton().GetConsole();
  for (const auto& [line, result] : lines) {
    EXPECT_EQ(console.Execute(line, false), result) << line;
  }
  for (const std::string& name : console.GetCommandNames()) {
    EXPECT_TRUE(console.Execute("help(" + name + ")", false).starts_with(name)) << name;
  }
  EXPECT_FALSE(IsQuitting());
  CApplicationFactory::DeleteSingleton();
}
// clang-format on

}  // namespace
}  // namespace vask::test
