#include "gfx/text/textsprite.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "support/uitest.h"
#include "tasks/taskdebug.h"
#include "utils/assert.h"

#include <regex>
#include <sstream>

namespace vask::test {
namespace {

// A debug task beside the one that feeds the widgets of its console.
struct Debug : ui::UiTest {
  Debug() { task.Start(); }
  ~Debug() override { task.Exit(); }
  static std::size_t CountWindows() { return ui::Desktop()->GetChildren().size(); }

  const std::vector<CSprite*>& myTexts = CScreenLayer::GetSingleton().GetChildren();
  CTaskDebug task;
};

TEST_F(Debug, ALineMayStopTheTaskThatExecutesItAndThatOfTheWidgets) {
  RunScript("starttask(ui, ui1)\nstarttask(debug, two)");
  RunScript(R"(
      starttask( debug, debug, 60 )
      debug::ToggleConsole
      debug::RecordInput( "game.rec" )
  )");
  TypeIntoConsole("stoptask(ui1)\r");
  EXPECT_EQ(CountWindows(), 0U);
  RunScript("debug::ToggleConsole");
  EXPECT_EQ(TypeIntoConsole("x"), "x") << "another console";
  TypeIntoConsole(";stoptask(debug);two::ToggleConsole\r");
  EXPECT_EQ(CountWindows(), 1U);
  EXPECT_EQ(TypeIntoConsole("x"), "x") << "the other task's";
  RunScript("stoptask(two)");
}

TEST_F(Debug, CountsFramesOverAtLeastASecond) {
  const auto& text = dynamic_cast<CTextSprite&>(*myTexts.front());
  // What the text shows, and the figures, after so many frames.
  const auto after = [&](int frames, unsigned milliseconds) {
    for (int i = 0; i < frames; ++i) {
      myClock.Advance(milliseconds);
      task.Update();
    }
    const auto [average, lowest, highest] = task.GetFrameRate();
    std::ostringstream seen;
    seen << text.GetText() << ", average " << average << " of " << lowest << " to " << highest;
    return seen.str();
  };
  EXPECT_EQ(after(60, 16), ", average 0 of 4294967295 to 0") << "no second yet";
  EXPECT_EQ(after(1, 40), "Fps: 61, average 61 of 61 to 61");
  EXPECT_EQ(after(1, 999), "Fps: 61, average 61 of 61 to 61");
  EXPECT_EQ(after(1, 1), "Fps: 2, average 31.5 of 2 to 61");
  EXPECT_EQ(after(100, 10), "Fps: 100, average 65.75 of 2 to 100");
}

TEST_F(Debug, TheFrameRateShowsAsItsVariableSays) {
  RunScript("debug_show_fps = 0");
  task.Update();
  EXPECT_TRUE(myTexts.empty());
  RunScript("debug_show_fps = 1");
  task.Update();
  EXPECT_EQ(myTexts.front()->GetRect(), (Rect{115, 10, 75, 20}));
  CScreenLayer::GetSingletonPtr()->DrawFrame();
  EXPECT_EQ(ScreenColor(185, 10), 0x08080CU) << "its backdrop";
  task.Exit();
  EXPECT_TRUE(myTexts.empty());
}

TEST_F(Debug, TheFrameRateIsDraggedWhereNoConsoleIsInFrontOfIt) {
  const CSprite& text = *myTexts.front();
  const auto dragged = [&](int x) {
    Press({x, 15});
    ui::Bridge().MouseMove(x + 10, 25, 10, 10);
    Release({x + 10, 25});
    return text.GetX();
  };
  task.ExecuteCommand("ToggleConsole");
  EXPECT_EQ(FrontWindow().GetRect(), (Rect{10, 10, 400, 200}));
  EXPECT_EQ(ConsoleLine()->GetRect(), (Rect{12, 188, 396, 20}));
  EXPECT_LT(FrontWindow().GetDepth(), text.GetZ());
  EXPECT_EQ(dragged(120), 115);
  task.ExecuteCommand("ToggleConsole");
  EXPECT_EQ(dragged(120), 125);
}

TEST_F(Debug, BansAssertionsUnlessTheNumberIsZero) {
  const auto areBannedBy = [&](const std::string& parameter) {
    EXPECT_TRUE(task.ExecuteCommand("banAsserts(" + parameter + ")"));
    return AreAssertsBanned();
  };
  EXPECT_TRUE(areBannedBy("1"));
  EXPECT_FALSE(areBannedBy("0.9"));
  EXPECT_TRUE(areBannedBy("-2"));
  EXPECT_TRUE(areBannedBy("off")) << "as before";
  EXPECT_FALSE(areBannedBy("0"));
}

TEST_F(Debug, TheCommandsForgetTheTaskThatEndsAndNoOther) {
  CConsoleCommand& toggle = *GetDebugCommands().front().command;
  task.ExecuteCommand("ToggleConsole");
  CTaskDebug().Exit();
  toggle.Execute();
  EXPECT_EQ(CountWindows(), 0U) << "closed";
  task.Exit();
  toggle.Execute();
  EXPECT_EQ(CountWindows(), 0U);
}

TEST_F(Debug, CommandsComplainOfWrongParameters) {
  const CLogCapture log;
  task.ExecuteCommand("BanAsserts(off);RecordInput(5);PlaybackInput");
  EXPECT_EQ(log.Count("BanAsserts - command, need atleast on parameter. 1 = ban assert"), 1U);
  EXPECT_EQ(log.Count(" -command, requires atleast one parameter, the file recording is"), 2U);
}

TEST_F(Debug, RecordsAndPlaysBackOneAtATime) {
  WriteFile("game.rec", "1\n0 mm 3 4\n7 md 1\n");
  CTaskDebug other;
  other.Start();
  other.ExecuteCommand("RecordInput(copy.rec)");
  task.ExecuteCommand("PlaybackInput(game.rec)");
  task.Update();
  task.ExecuteCommand("RecordInput(new.rec)");  // ends the playback
  CEventBridge::GetSingleton().MouseMove(5, 6, 0, 0);
  task.Exit();
  CEventBridge::GetSingleton().MouseButtonUp(1);
  const std::regex seedOrTime("(^|\n)[0-9]+");
  EXPECT_EQ(std::regex_replace(FileText("new.rec") + FileText("copy.rec"), seedOrTime, ""),
            " mm 5 6 mm 3 4 mm 5 6 mu 1\n");
}

}  // namespace
}  // namespace vask::test
