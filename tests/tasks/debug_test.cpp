#include "events/eventrecorder.h"
#include "gfx/text/textsprite.h"
#include "input/keyboard.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "tasks/taskdebug.h"
#include "ui/desktopwidget.h"
#include "ui/receivers.h"
#include "ui/textinputwidget.h"
#include "ui/windowwidget.h"
#include "utils/assert.h"

#include <gtest/gtest.h>

#include <climits>
#include <fstream>
#include <regex>

namespace vask::test {

// A run with the UI task and two debug tasks. As the name of a stopped task is taken for good, all
// names hold the number of the run, for which "%" stands.
struct CRun {
  CRun() {
    Execute("starttask(ui, ui%, 7);starttask(debug, debug%, 6);starttask(debug, other%, 6)");
  }
  ~CRun() {
    Execute("stoptask(ui%);stoptask(debug%);stoptask(other%);stoptask(new%)"), ++ourNumber;
  }

  static std::string Numbered(const std::string& line) {
    return std::regex_replace(line, std::regex("%"), std::to_string(ourNumber));
  }
  static void Execute(const std::string& line) {
    CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(Numbered(line), false);
  }
  static CTaskDebug& Task(const std::string& name = "debug%") {
    return dynamic_cast<CTaskDebug&>(*CTaskFactory::GetSingletonPtr()->GetTask(Numbered(name)));
  }
  static const auto& Windows() { return ui::CDesktopWidget::GetSingletonPtr()->GetChildren(); }
  // Types into the line of the frontmost console and answers what it shows then; "^", "_" and "<"
  // are the keys up, down and left.
  static std::string Type(const std::string& keys) {
    SetFocus(Windows().front()->GetChildren().front()->GetChildren().front());
    for (const char key : Numbered(keys)) {
      const int code = key == '^' ? 273 : key == '_' ? 274 : key == '<' ? 276 : key;
      ui::CKeyboardEvent event(ui::IEvent::kKeyDown, code, static_cast<std::uint8_t>(key));
      ui::CDesktopWidget::GetSingletonPtr()->HandleEvent(event);
    }
    const auto* line = dynamic_cast<ui::CTextInputWidget*>(ui::GetFocus());
    return line != nullptr ? line->GetText() : "";
  }

  static inline int ourNumber = 0;
  CFakeClock clock;
  CTestScreen screen{200, 60};
};

struct CBinding : IKeyEvent {
  bool Trigger(int) override { return ++fired > 0; }
  int fired = 0;
};

TEST(Debug, EscapeAndF1CloseTheConsolesAndReachNoBinding) {
  const CRun run;
  CKeyboard& keyboard = *CKeyboard::GetSingletonPtr();
  const CSmartPtr<IKeyEvent> event(new CBinding);
  int& fired = static_cast<CBinding&>(*event).fired;
  for (const int key : {27, 282}) {
    keyboard.BindKey(key, event, -1000);
    for (const int how : {0, 1, 2, 3}) {
      const bool hasFocus = (how & 1) != 0;
      const bool debugComesFirst = (how & 2) != 0;
      run.Execute("debug%::ToggleConsole;other%::ToggleConsole");
      EXPECT_EQ(hasFocus ? run.Type("`") : "`", "`");
      CEventBridge::GetSingletonPtr()->KeyDown(key, 0);
      EXPECT_TRUE(dynamic_cast<ui::CWindowWidget&>(*run.Windows().front()).IsClosed());
      debugComesFirst ? void() : keyboard.Update();
      run.Task().Update();
      run.Task("other%").Update();
      keyboard.Update();
      EXPECT_TRUE(run.Windows().empty()) << key << " " << how;
      EXPECT_EQ(fired, 0) << key << " " << how;
    }
    CEventBridge::GetSingletonPtr()->KeyDown(key, 0);
    keyboard.Update();
    EXPECT_EQ(std::exchange(fired, 0), 1) << "no console is open";
  }
  run.Execute("debug%::ToggleConsole");
  CEventBridge::GetSingletonPtr()->KeyDown(282, 0);
  CEventBridge::GetSingletonPtr()->KeyDown(27, 0);
  keyboard.Update();
  EXPECT_EQ(fired, 0) << "it is closed, but stands while its task is paused";
  run.Execute("debug%::ToggleConsole");
  EXPECT_TRUE(run.Windows().empty());
}

TEST(Debug, ThePointerShowsWhileAConsoleIsOpenAndIsAsWantedThen) {
  const CRun run;
  const CNotingHardware pointer;
  run.Execute("starttask(mouse, mouse%, 5);mouse%::CursorHide");
  for (const auto& [line, asked] : {std::pair("debug%::ToggleConsole", "show"),
                                    {"other%::ToggleConsole;mouse%::CursorHide", "show"},
                                    {"debug%::ToggleConsole", "show"},
                                    {"other%::ToggleConsole", "hide"},
                                    {"other%::ToggleConsole;mouse%::CursorShow", "show"},
                                    {"other%::ToggleConsole", "show"}}) {
    run.Execute(line);
    EXPECT_EQ(pointer.last, asked) << line;
  }
  run.Execute("stoptask(mouse%)");
}

TEST(Debug, ConsoleBrowsesItsHistoryAndCompletes) {
  CRun run;
  CLogCapture log;
  run.Execute("debris = 1");
  // Each in a console of its own: keys, and the text after them.
  // clang-format off
  const std::pair<const char*, const char*> cases[] = {
      {"a\rb\r^", "a"}, {"a\rb\r^^", "a"}, {"a\rb\r^^_", "b"}, {"a\rb\r^^__", "b"}, {"b\r^", "b"}, {"a\r_", ""},
      {"a\rb\rc^", "b"}, {"a\rb\rc^_", "c"}, {"a\rb\rc^_^", "c"}, {"a\r\r^", "a"}, {"^", ""}, {"QUI\t", "quit"}, {"a\rb\rc\r^^\r^", "c"},
      {"debug%::ToggleConsole;debug%::ToggleConsole\rb\r^", "debug%::ToggleConsole;debug%::ToggleConsole"},
      {"x = DEBR\t", "x = debris"}, {"help(qui)<\t", "help(quit)"}, {"a;oth\t", "a;other%::"}, {"f(oth\t", "f(other%"},
      {"f(1);oth\t", "f(1);other%::"}, {"OTH\t", "OTH"}, {"other%::qui\t", "other%::qui"}, {"de\t", "deb"}};
  // clang-format on
  for (const auto& [keys, text] : cases) {
    run.Execute("debug%::ToggleConsole");
    EXPECT_EQ(run.Type(keys), run.Numbered(text));
    run.Execute("debug%::ToggleConsole");
    EXPECT_TRUE(run.Windows().empty());
  }
  EXPECT_NE(log.Text().find("a\na\nb\nb\na\n"), std::string::npos) << "lines and results";
  EXPECT_TRUE(log.Has(run.Numbered("debris  debug%::"))) << "choices";
}

TEST(Debug, ExecutedLinesMayEndWhatExecutesThem) {
  // What is typed; how many windows there are after the next frame (9: there is none); whose
  // console is opened again.
  // clang-format off
  const std::tuple<std::string, std::size_t, std::string> cases[] = {
      {"debug%::ToggleConsole", 0, "debug%"}, {"debug%::ToggleConsole;debug%::ToggleConsole", 1, ""},
      {"other%::ToggleConsole", 2, ""}, {"stoptask(debug%)", 0, "other%"}, {"stoptask(ui%)", 0, "debug%"},
      {"stoptask(ui%)", 9, "debug%"}, {"stoptask(ui%);debug%::ToggleConsole", 0, "debug%"},
      {"stoptask(debug%);debug%::ToggleConsole;stoptask(ui%)", 0, "other%"}, {"stoptask(ui%);stoptask(debug%)", 0, "other%"},
      {"stoptask(ui%);starttask(ui, new%, 70)", 0, "debug%"},
      {"stoptask(debug%);starttask(debug, new%, 60);new%::ToggleConsole", 1, ""}};
  // clang-format on
  for (const auto& [typed, windows, again] : cases) {
    CRun run;
    run.Execute("debug%::ToggleConsole"), run.Type(typed + "\r");
    windows < 9 ? run.Task().Update() : void();
    EXPECT_EQ(run.Windows().size(), windows % 9) << typed;
    run.Execute(again + "::ToggleConsole");
    EXPECT_EQ(run.Type("x"), "x") << typed;
  }
}

TEST(Debug, CountsFrames) {
  CRun run;
  const std::vector<CSprite*>& sprites = CScreenLayer::GetSingletonPtr()->GetChildren();
  CScreenLayer::GetSingletonPtr()->DrawFrame();
  EXPECT_EQ(sprites[1]->GetRect(), (CRect<int>{115, 10, 75, 20}));
  EXPECT_NE(run.screen.At(185, 20), 0) << "has a backdrop";
  // Frames and their length in milliseconds; text and figures after them.
  // clang-format off
  const std::tuple<int, unsigned, std::string, float, unsigned, unsigned> cases[] = {
      {60, 16, "", 0, UINT_MAX, 0}, {1, 40, "Fps: 61", 61, 61, 61}, {1, 999, "Fps: 61", 61, 61, 61},
      {1, 1, "Fps: 2", 31.5F, 2, 61}, {100, 10, "Fps: 100", 65.75F, 2, 100}};
  // clang-format on
  for (const auto& [frames, length, shown, average, lowest, highest] : cases) {
    for (int i = 0; i < frames; ++i) {
      run.clock.Advance(length), run.Task().Update();
    }
    const auto [mean, least, most] = run.Task().GetFrameRate();
    EXPECT_EQ(dynamic_cast<CTextSprite&>(*sprites[1]).GetText(), shown);
    EXPECT_TRUE(mean == average && least == lowest && most == highest) << shown;
  }
  run.Execute("stoptask(debug%)");
  EXPECT_EQ(sprites.size(), 1U) << "that of the other task";
}

TEST(Debug, TheFrameRateShowsAsItsVariableSaysAndUnderTheConsole) {
  CEventBridge::GetSingletonPtr()->Resize(800, 600);
  const CRun run;
  const auto& texts = CScreenLayer::GetSingletonPtr()->GetChildren();
  for (const auto& [line, shown] :
       {std::pair("", 2U), {"debug_show_fps = 0", 1}, {"debug_show_fps = 1", 2}}) {
    run.Execute(line);
    run.Task().Update();
    EXPECT_EQ(texts.size(), shown) << line;
  }
  CSprite* text = texts.front();
  run.Execute("debug%::ToggleConsole");
  EXPECT_LT(run.Windows().front()->GetDepth(), text->GetZ());
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.MouseMove(120, 15, 0, 0);
  bridge.MouseButtonDown(1);
  bridge.MouseMove(130, 25, 10, 10);
  bridge.MouseButtonUp(1);
  EXPECT_EQ(run.Windows().front()->GetRect().x, 20);
  EXPECT_EQ(text->GetX(), 115) << "the console lies over it";
}

TEST(Debug, CommandsReachTheirOwnTaskOrComplain) {
  CRun run;
  // A line, what it complains of, whether assertions are banned after it.
  // clang-format off
  const std::string ban = "BanAsserts - command, need atleast on parameter. 1 = ban assert dialog box, 0 = allow assert dialog box.\n";
  const std::string file = "Input -command, requires atleast one parameter, the file recording is saved to.\n";
  const std::tuple<const char*, std::string, bool> cases[] = {
      {"BanAsserts(1)", "", true}, {"BanAsserts", ban, true}, {"BanAsserts(off)", ban, true}, {"BanAsserts(0.9)", "", false},
      {"banasserts(-2)", "", true}, {"BanAsserts(0)", "", false}, {"RecordInput", "Record" + file, false},
      {"RecordInput(5)", "Record" + file, false}, {"PlaybackInput(5)", "Playback" + file, false}};
  // clang-format on
  for (const auto& [line, complaint, isBanned] : cases) {
    CLogCapture log;
    EXPECT_TRUE(run.Task().ExecuteCommand(line) && AreAssertsBanned() == isBanned) << line;
    EXPECT_EQ(log.Text(), complaint) << line;
    EXPECT_TRUE(complaint.empty() || log.Lines()[0].level == kLogError);
  }
  std::ofstream("game.rec") << "1\n0 mm 3 4\n7 md 1\n";
  run.Execute("debug%::PlaybackInput(game.rec);other%::RecordInput(copy.rec)");
  run.Task().Update();
  const auto playbackClock = GetGlobalTimerImpl();
  run.Execute("debug%::RecordInput(new.rec)");
  EXPECT_FALSE(GetGlobalTimerImpl() == playbackClock) << "the playback has ended";
  CEventBridge::GetSingletonPtr()->MouseMove(5, 6, 0, 0);
  run.Execute("other%::ToggleConsole;stoptask(debug%)");
  CEventBridge::GetSingletonPtr()->MouseButtonUp(1);
  std::stringstream records;
  records << std::ifstream("new.rec").rdbuf() << std::ifstream("copy.rec").rdbuf();
  const std::regex seedOrTime("(^|\n)[0-9]+");
  EXPECT_EQ(std::regex_replace(records.str(), seedOrTime, ""), " mm 5 6 mm 3 4 mm 5 6 mu 1\n");
  GetDebugCommands()[0].command->Execute();
  EXPECT_TRUE(run.Windows().empty()) << "the commands are still the other task's";
  run.Execute("stoptask(other%)");
  GetDebugCommands()[0].command->Execute();
  EXPECT_TRUE(run.Windows().empty() && !run.Task().ExecuteCommand("ToggleConsole"));
}

}  // namespace vask::test
