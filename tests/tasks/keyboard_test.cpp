#include "input/keyboard.h"

#include "console/consoleparams.h"
#include "events/eventbridge.h"
#include "input/keynames.h"
#include "kernel/applicationfactory.h"
#include "tasks/taskkeyboard.h"

#include <gtest/gtest.h>

namespace vask::test {

// A command that collects its parameters.
struct CNote : CConsoleCommand {
  std::string Execute(CConsoleParams* params) override { return record += params->GetString(0); }
  std::string Execute() override { return {}; }
  std::string record;
};

TEST(TaskKeyboardTest, BoundLinesRunWhenTheirKeysGoDown) {
  // The lines; the keys, each in a frame of its own ("-": it comes up); what is heard.
  // clang-format off
  const std::tuple<std::vector<const char*>, std::vector<std::string>, std::string> cases[] = {
      {{"bind(escape, note(x))"}, {"escape", "-escape", "a"}, "x"},
      {{"bind(a, note(x), 9.9)", "bind(a, note(y))", "bind(a, note(z), soon)"}, {"a"}, "xzy"},
      {{"bind(a  alt_gr, note(x))"}, {"a", "-a", "alt_gr", "a", "-a", "-alt_gr", "a", "alt_gr"}, "xx"},
      {{"bind(\" a, note(x))"}, {"\"", "a"}, "x"},          // a key, not a quotation
      {{"bind(\"a b\" c, note(x))"}, {"a", "b", "c"}, ""},  // one name that holds a blank
      {{"bind(\"1\", note(x))", "bind(1, note(y))"}, {"1"}, "x"},
      {{"bind(A, note(x))", "bind(323, note(x))"}, {"A", "a"}, ""},  // "A" goes down as code 0
      {{"bind", "bind()", "bind(a)", "bind(a, 5)", "bind(\"\", note(x))"}, {"a", "A"}, ""}};
  // clang-format on
  CNote note;
  CConsole& console = *CApplicationFactory::GetSingletonPtr()->GetConsole();
  console.AddCommand("note", &note);
  CTaskKeyboard task;
  task.ExecuteCommand("bind(a, note(early))");  // nothing before the start, but no crash
  for (const auto& [binds, keys, heard] : cases) {
    CKeyboard::DeleteSingleton();
    EXPECT_TRUE(task.Start());
    std::ranges::for_each(binds, [&](const char* line) { task.ExecuteCommand(line); });
    note.record.clear();
    for (const std::string& key : keys) {
      CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
      key[0] == '-' ? bridge.KeyUp(KeyFromName(key.substr(1)), 0)
                    : bridge.KeyDown(KeyFromName(key), 0);
      task.Update();
    }
    EXPECT_EQ(note.record, heard) << binds.front();
  }
  console.RemoveCommand("note");
}

}  // namespace vask::test
