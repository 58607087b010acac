#include "ui/console/consolewindow.h"

#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"
#include "input/keynames.h"
#include "support/keys.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "ui/console/consolecompletion.h"
#include "ui/console/consoleinput.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

// What a new console shows in its line after these keys.
std::string Typed(const std::string& keys) {
  const CTestScreen screen(80, 60);
  const CConsoleWindow console;
  return TypeIntoConsole(keys);
}

TEST(ConsoleWindow, BrowsesItsHistory) {
  const CLogCapture log;
  EXPECT_EQ(Typed("b\r^"), "b");
  EXPECT_EQ(Typed("a\rb\r^"), "a") << "the line before the last one";
  EXPECT_EQ(Typed("a\rb\r^^"), "a") << "the oldest";
  EXPECT_EQ(Typed("a\rb\r^__"), "b");
  EXPECT_EQ(Typed("a\rb\rc^"), "b") << "what was typed is kept";
  EXPECT_EQ(Typed("a\rb\rc^_"), "c");
  EXPECT_EQ(Typed("a\rb\rc\r^^\r^"), "c") << "from the newest one again";
  EXPECT_NE(log.Text().find("b\nb\n"), std::string::npos) << "lines and their results are logged";
}

TEST(ConsoleWindow, EscapeAndF1CloseItAndGoNoFurther) {
  const CTestScreen screen(80, 60);
  CConsoleWindow console;
  EXPECT_FALSE(console.TakesPress('`'));
  EXPECT_FALSE(console.IsClosed());
  EXPECT_TRUE(console.TakesPress(kF1Key));
  EXPECT_TRUE(console.IsClosed());
  EXPECT_FALSE(console.TakesPress(kF1Key)) << "so that its owner hears of it while it pauses";
  EXPECT_TRUE(console.TakesPress(kEscapeKey)) << "it has not gone";
}

TEST(ConsoleWindow, TabCompletesTheWordBeforeTheCursor) {
  const CLogCapture log;
  EXPECT_EQ(Typed("help(qui)<\t"), "help(quit)");
  EXPECT_EQ(Typed("audiotest = 1\rAUDIOT\t"), "audiotest");
  Typed("t\t");
  EXPECT_TRUE(log.Has("taskload  toggle")) << "several to a line";
}

TEST(ConsoleCompletion, CompletesTheLastWordAsFarAsItIsTheOnlyOne) {
  const SConsoleNames names{
      .commands = {"quit", "help"}, .variables = {"debris", "debt"}, .tasks = {"Delta", "Other"}};
  const auto completed = [&names](const std::string& line) {
    const SCompletion found = CompleteWord(line, names);
    return line.substr(0, line.size() - found.typed) + found.word;
  };
  EXPECT_EQ(completed("QUI"), "quit");
  EXPECT_EQ(completed("x = DEBRIS"), "x = debris");
  EXPECT_EQ(completed("de"), "deb");
  EXPECT_EQ(CompleteWord("de", names).choices, (std::vector<std::string>{"debris", "debt"}));
  EXPECT_TRUE(CompleteWord("q", names).choices.empty()) << "no choice";
  EXPECT_EQ(completed("De"), "De") << "names in different cases";
  EXPECT_EQ(completed("a;Oth"), "a;Other::");
  EXPECT_EQ(completed("f(Oth"), "f(Other") << "a parameter";
  EXPECT_EQ(completed("oth"), "oth") << "tasks have their case";
  EXPECT_EQ(completed(":qui"), ":qui") << "the task's own matter";
}

// Five characters of the system font and the cursor fit in.
struct ConsoleInput : testing::Test {
  ConsoleInput() { SetFocus(&myInput); }
  const std::string& ShownAfter(const std::string& keys) {
    Type(keys);
    return dynamic_cast<CTextSprite&>(*mySprite).GetText();
  }

  const CTestScreen myScreen{80, 60};
  const CSpritePtr mySprite{new CTextSprite(LoadFont("system"), 32, 20)};
  CConsoleInput myInput{nullptr, {100, 0, 32, 20}, false, "", mySprite, ""};
};

TEST_F(ConsoleInput, ALongLineScrollsWithItsCursor) {
  EXPECT_EQ(ShownAfter("abcde"), "abcde");
  myInput.Resize(31, 20);
  EXPECT_EQ(ShownAfter(""), "bcde");
  myInput.Resize(32, 20);
  EXPECT_EQ(ShownAfter("fg"), "cdefg");
  EXPECT_EQ(ShownAfter("<<<<<"), "cdefg");
  EXPECT_EQ(ShownAfter("<"), "bcdefg");
  myInput.CursorEnd();
  EXPECT_EQ(ShownAfter("\b"), "bcdef") << "no space is left after the end";
  myInput.SetCursorToPoint({113, 0});
  EXPECT_EQ(myInput.GetCursor(), 3) << "counted from the characters that are scrolled out";
  myInput.Resize(100, 20);
  EXPECT_EQ(ShownAfter(""), "abcdef");
}

TEST_F(ConsoleInput, ControlCharactersStayOut) {
  TypeKey(0, '\x7f');
  Type("\x1b\x1f~ ");
  EXPECT_EQ(myInput.GetText(), "~ ");
}

}  // namespace
}  // namespace vask::test
