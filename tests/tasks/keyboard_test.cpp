#include "input/keyboard.h"

#include "console/consoleparams.h"
#include "events/eventbridge.h"
#include "input/keynames.h"
#include "kernel/applicationfactory.h"
#include "tasks/taskkeyboard.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

// A command that collects its parameters.
struct CNote : CConsoleCommand {
  CNote() { CApplicationFactory::GetSingletonPtr()->GetConsole()->AddCommand("note", this); }
  ~CNote() override { CApplicationFactory::GetSingletonPtr()->GetConsole()->RemoveCommand("note"); }
  std::string Execute(CConsoleParams* params) override { return notes += params->GetString(0); }
  std::string Execute() override { return {}; }
  std::string notes;
};

using Lines = std::vector<std::string>;

// What is noted when keys come down, one in each frame, bound by these lines alone; "-" and a key:
// it comes up.
std::string Noted(const Lines& lines, const Lines& keys) {
  CKeyboard::DeleteSingleton();
  const CNote note;
  CTaskKeyboard task;
  EXPECT_TRUE(task.Start());
  for (const std::string& line : lines) {
    task.ExecuteCommand(line);
  }
  for (const std::string& key : keys) {
    if (key[0] == '-') {
      CEventBridge::GetSingleton().KeyUp(KeyFromName(key.substr(1)), 0);
    } else {
      CEventBridge::GetSingleton().KeyDown(KeyFromName(key), 0);
    }
    task.Update();
  }
  return note.notes;
}

TEST(KeyboardTask, BoundLinesRunWhenTheirKeysGoDown) {
  EXPECT_EQ(Noted({"bind(escape, note(x))"}, {"escape", "-escape", "a"}), "x");
  const std::string at9 = "bind(a, note(x), 9)", at11 = "bind(a, note(z), 11)";
  EXPECT_EQ(Noted({at9, "bind(a, note(y))", at11, "bind(a, note(w), soon)"}, {"a"}), "xwyz");
  EXPECT_EQ(Noted({"bind(\" a, note(x))"}, {"\"", "a"}), "x") << "a quote is a key";
  EXPECT_EQ(Noted({"bind(\"1\", note(x))", "bind(1, note(y))"}, {"1"}), "x") << "a number is none";
  EXPECT_EQ(Noted({"bind", "bind()", "bind(a)", "bind(a, 5)"}, {"a"}), "");
}

TEST(KeyboardTask, SeveralKeysRunTheirLineWhenTheLastOneGoesDown) {
  const Lines lines = {"bind(a  alt_gr, note(x))"};
  EXPECT_EQ(Noted(lines, {"a", "-a", "alt_gr"}), "");
  EXPECT_EQ(Noted(lines, {"alt_gr", "a", "-a", "-alt_gr", "a", "alt_gr"}), "xx");
  EXPECT_EQ(Noted({"bind(\"a b\" c, note(x))"}, {"a", "b", "c"}), "") << "a name with a blank";
}

}  // namespace
}  // namespace vask::test
