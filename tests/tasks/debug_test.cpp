#include "events/eventbridge.h"
#include "gfx/text/textsprite.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "tasks/taskdebug.h"
#include "ui/desktopwidget.h"
#include "ui/receivers.h"
#include "ui/textinputwidget.h"
#include "utils/assert.h"

#include <gtest/gtest.h>

#include <climits>
#include <fstream>
#include <regex>
#include <tuple>

namespace vask::test {
namespace {

// A run with the UI task and two debug tasks. As the name of a stopped task is taken for good, all
// names hold the number of the run, for which "%" stands.
struct Debug : testing::Test {
  Debug() { Run("starttask(ui, ui%, 7);starttask(debug, debug%, 6);starttask(debug, other%, 6)"); }
  ~Debug() override {
    Run("stoptask(ui%);stoptask(debug%);stoptask(other%);stoptask(new%)");
    ++ourNumber;
  }

  static std::string Numbered(const std::string& line) {
    return std::regex_replace(line, std::regex("%"), std::to_string(ourNumber));
  }
  static void Run(const std::string& line) { RunScript(Numbered(line)); }
  static CTaskDebug& Task(const std::string& name = "debug%") {
    return dynamic_cast<CTaskDebug&>(*CTaskFactory::GetSingletonPtr()->GetTask(Numbered(name)));
  }
  // The consoles, while there is a desktop.
  static std::size_t CountWindows() {
    return ui::CDesktopWidget::GetSingletonPtr()->GetChildren().size();
  }
  static ui::CWidget& Window() { return *ui::CDesktopWidget::GetSingleton().GetChildren().front(); }
  // Types into the line of the frontmost console and returns what it shows then.
  static std::string Type(const std::string& keys) {
    SetFocus(Window().GetChildren().front()->GetChildren().front());
    for (const char key : Numbered(keys)) {
      CEventBridge::GetSingleton().KeyDown(key, static_cast<unsigned char>(key));
    }
    const auto* line = dynamic_cast<ui::CTextInputWidget*>(ui::GetFocus());
    return line != nullptr ? line->GetText() : "";
  }

  static inline int ourNumber = 0;
  CFakeClock myClock;
  CTestScreen myScreen{200, 60};
};

TEST_F(Debug, ACommandOpensTheConsole) {
  RunScript(R"(
      starttask( debug, debug, 60 )
      debug::ToggleConsole
      debug::RecordInput( "game.rec" )
  )");
  EXPECT_EQ(CountWindows(), 1U);
  RunScript("stoptask(debug)");
}

TEST_F(Debug, ALineMayStopTheTaskThatExecutesItAndThatOfTheWidgets) {
  Run("debug%::ToggleConsole");
  Type("stoptask(ui%);starttask(ui, new%, 70)\r");
  EXPECT_EQ(CountWindows(), 0U);
  Run("debug%::ToggleConsole");
  EXPECT_EQ(Type("x"), "x") << "another console";
  Type(";stoptask(debug%);other%::ToggleConsole\r");
  EXPECT_EQ(CountWindows(), 1U);
  EXPECT_EQ(Type("x"), "x") << "the other task's";
}

TEST_F(Debug, CountsFramesOverAtLeastASecond) {
  const auto* text = dynamic_cast<CTextSprite*>(CScreenLayer::GetSingleton().GetChildren()[1]);
  // What the text shows, and the average, lowest and highest figure, after so many frames.
  const auto after = [&](int frames, unsigned milliseconds) {
    for (int i = 0; i < frames; ++i) {
      myClock.Advance(milliseconds);
      Task().Update();
    }
    const auto [average, lowest, highest] = Task().GetFrameRate();
    return std::tuple(text->GetText(), average, lowest, highest);
  };
  EXPECT_EQ(after(60, 16), std::tuple("", 0.0F, UINT_MAX, 0U));
  EXPECT_EQ(after(1, 40), std::tuple("Fps: 61", 61.0F, 61U, 61U));
  EXPECT_EQ(after(1, 999), std::tuple("Fps: 61", 61.0F, 61U, 61U));
  EXPECT_EQ(after(1, 1), std::tuple("Fps: 2", 31.5F, 2U, 61U));
  EXPECT_EQ(after(100, 10), std::tuple("Fps: 100", 65.75F, 2U, 100U));
}

TEST_F(Debug, TheFrameRateShowsAsItsVariableSays) {
  const auto& texts = CScreenLayer::GetSingletonPtr()->GetChildren();
  Run("debug_show_fps = 0");
  Task().Update();
  EXPECT_EQ(texts.size(), 1U) << "that of the other task";
  Run("debug_show_fps = 1");
  Task().Update();
  EXPECT_EQ(texts.front()->GetRect(), (CRect<int>{115, 10, 75, 20}));
  CScreenLayer::GetSingletonPtr()->DrawFrame();
  EXPECT_EQ(myScreen.At(185, 10), 0x0C0C12U) << "the backdrops of both texts";
  Run("stoptask(debug%)");
  EXPECT_EQ(texts.size(), 1U);
}

TEST_F(Debug, TheFrameRateIsDraggedWhereNoConsoleIsInFrontOfIt) {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.Resize(800, 600);
  const CSprite& text = *CScreenLayer::GetSingletonPtr()->GetChildren().front();
  const auto dragged = [&](int x) {
    bridge.MouseMove(x, 15, 0, 0);
    bridge.MouseButtonDown(1);
    bridge.MouseMove(x + 10, 25, 10, 10);
    bridge.MouseButtonUp(1);
    return text.GetX();
  };
  Run("debug%::ToggleConsole");
  EXPECT_EQ(Window().GetRect(), (CRect<int>{10, 10, 400, 200}));
  const ui::CWidget& line = *Window().GetChildren().front()->GetChildren().front();
  EXPECT_EQ(line.GetRect(), (CRect<int>{12, 188, 396, 20}));
  EXPECT_LT(Window().GetDepth(), text.GetZ());
  EXPECT_EQ(dragged(120), 115);
  Run("debug%::ToggleConsole");
  EXPECT_EQ(dragged(120), 125);
}

TEST_F(Debug, BansAssertions) {
  const auto bans = [](const std::string& parameter) {
    EXPECT_TRUE(Task().ExecuteCommand("banAsserts(" + parameter + ")"));
    return AreAssertsBanned();
  };
  EXPECT_TRUE(bans("1"));
  EXPECT_FALSE(bans("0.9"));
  EXPECT_TRUE(bans("-2"));
  EXPECT_TRUE(bans("off")) << "changes nothing";
  EXPECT_FALSE(bans("0"));
}

TEST_F(Debug, CommandsComplainOfWrongParameters) {
  const CLogCapture log;
  Run("debug%::BanAsserts(off);debug%::RecordInput(5);debug%::PlaybackInput");
  EXPECT_EQ(log.Count("BanAsserts - command, need atleast on parameter. 1 = ban assert"), 1U);
  EXPECT_EQ(log.Count(" -command, requires atleast one parameter, the file recording is"), 2U);
}

TEST_F(Debug, RecordsAndPlaysBackOneAtATime) {
  std::ofstream("game.rec") << "1\n0 mm 3 4\n7 md 1\n";
  Run("debug%::PlaybackInput(game.rec);other%::RecordInput(copy.rec)");
  Task().Update();
  Run("debug%::RecordInput(new.rec)");  // ends the playback
  CEventBridge::GetSingletonPtr()->MouseMove(5, 6, 0, 0);
  Run("stoptask(debug%)");
  CEventBridge::GetSingletonPtr()->MouseButtonUp(1);
  std::ostringstream records;
  records << std::ifstream("new.rec").rdbuf() << std::ifstream("copy.rec").rdbuf();
  const std::regex seedOrTime("(^|\n)[0-9]+");
  EXPECT_EQ(std::regex_replace(records.str(), seedOrTime, ""), " mm 5 6 mm 3 4 mm 5 6 mu 1\n");
}

}  // namespace
}  // namespace vask::test
