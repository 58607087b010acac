#include "game/brumbletask.h"

#include "events/eventbridge.h"
#include "game/brumbleingameui.h"
#include "game/game_support.h"
#include "input/mouse.h"

namespace brumble {
namespace {

using Ui = CBrumbleTaskImpl::CBrumbleInGameUi;

class TaskTest : public test::GameTest, public vask::IMouseHardware {
 protected:
  TaskTest() { vask::CEventBridge::GetSingletonPtr()->SetMouseHardware(this); }
  ~TaskTest() override { vask::CEventBridge::GetSingletonPtr()->ClearMouseHardware(); }
  void ShowCursor() override { isCursorShown = true; }
  void HideCursor() override { isCursorShown = false; }
  void ChangeCursor(int) override {}
  void GrabInput(bool) override {}

  static void Click(int button = 1) { vask::CMouse::GetSingletonPtr()->OnMouseButtonDown(button); }
  void Frame(unsigned milliseconds) {
    Pass(milliseconds);
    task.Update();
  }
  void StartGame() {
    task.Start();
    Click();
    Click();
  }
  CBrumbleTaskImpl& Impl() const { return *task.GetImpl(); }
  const std::vector<CPhysicsBody>& Bodies() const { return Impl().GetWorld().GetBodies(); }
  // 0 during play.
  int Screen() const { return Impl().GetScreen() != nullptr ? Impl().GetScreen()->GetState() : 0; }
  // How many steps the last body, a kitten that falls freely, has made.
  int Steps() const {
    int steps = 0;
    for (float v = 0.0F; v < Bodies().back().vy - 1e-4F; ++steps) {
      v = (v + 9.83F * 0.015F) * 0.999F;
    }
    return steps;
  }

  bool isCursorShown = false;
  CBrumbleTask task;
};

TEST_F(TaskTest, HooksAreHarmlessWithoutAGame) {
  for (int round = 0; round < 3; ++round) {
    task.Update();
    task.Pause();
    task.Resume();
    EXPECT_TRUE(task.ExecuteCommand("anything"));
    task.Exit();
    task.Exit();
    EXPECT_TRUE(round > 0 || task.Start());
  }
}

TEST_F(TaskTest, ScreensFollowTheLeftButton) {
  // clang-format off
  const struct {
    int button, screen; bool isCursorShown; std::string shown, gone;
  } clicks[] = {
      {2, Ui::kTitle, true, "title_screen", "help_screen"},
      {1, Ui::kHelpOrGameOver, true, "help_bubbles", "title_screen"},
      {16, Ui::kHelpOrGameOver, true, "help_screen", "background"},
      {1, 0, false, "background", "help_bubbles"},
      {1, 0, false, "background", "help_screen"},  // nobody hears it
      {0, Ui::kHelpOrGameOver, true, "gameover", "title_screen"},
      {1, 0, false, "background", "gameover"},
  };
  // clang-format on
  task.Start();
  for (const auto& c : clicks) {
    if (c.shown == "gameover") {
      GameState().isGameOver = true;
      Frame(100);
      EXPECT_EQ(Screen(), 0) << "not before the tick";
      Frame(1);
      Frame(1000);
      EXPECT_EQ(log.Count("Gameover"), 1U);
    }
    Click(c.button);
    EXPECT_EQ(Screen(), c.screen) << c.shown;
    EXPECT_EQ(isCursorShown, c.isCursorShown) << c.shown;
    EXPECT_EQ(test::Shown("data/gfx/" + c.shown + ".xml").size(), 1U) << c.shown;
    EXPECT_TRUE(test::Shown("data/gfx/" + c.gone + ".xml").empty()) << c.gone;
  }
  EXPECT_FALSE(GameState().isGameOver);
}

TEST_F(TaskTest, StepsTheWorldByItsClock) {
  StartGame();
  task.ExecuteCommand("");
  // 6 - 5 leaves 1, 12 - 10 leaves 2, and after a fourth step in one frame the rest is dropped.
  const std::vector<std::pair<unsigned, int>> frames = {{5, 0},  {1, 1}, {11, 3},  {3, 3}, {1, 4},
                                                        {30, 8}, {5, 8}, {20, 12}, {6, 13}};
  for (const auto& [frame, steps] : frames) {
    Frame(frame);
    EXPECT_EQ(Steps(), steps) << frame;
  }
}

TEST_F(TaskTest, NothingMovesWhileAScreenShowsOrTheTaskIsPaused) {
  const auto expectStill = [this](const char* when) {
    task.Pause();
    EXPECT_TRUE(isCursorShown);
    task.Resume();
    EXPECT_FALSE(isCursorShown);
    const int before = Steps();
    Frame(1000);
    EXPECT_EQ(Steps(), before) << when;
  };
  task.Start();
  task.ExecuteCommand("");
  expectStill("title");
  Click();
  expectStill("help");
  Click();
  task.ExecuteCommand("");
  Frame(6);
  task.Pause();
  Frame(1000);
  task.Resume();
  task.Update();
  EXPECT_EQ(Steps(), 1) << "the pause is no backlog";
  Frame(5);
  EXPECT_EQ(Steps(), 2);
  Impl().ShowGameOver();
  expectStill("game over");
}

// A kitten that moves down in the very step after its drop must keep its record, or the game waits
// for its end for ever. The extra kitten before it counts for nothing.
TEST_F(TaskTest, ARecordFollowsItsKittenFromTheFirstStepOn) {
  StartGame();
  task.ExecuteCommand("drop");
  EXPECT_EQ(GameState().kittensInPlay, 0);
  const_cast<CPhysicsBody&>(Bodies()[8]).y = 60.0F;  // about to leave
  Pass(601);
  const_cast<CGameLogic&>(Impl().GetGameLogic()).Tick();
  ASSERT_NE(Impl().GetGameLogic().GetRecord(9), nullptr);
  task.Update();
  ASSERT_EQ(Bodies().size(), 9U);
  EXPECT_NE(Impl().GetGameLogic().GetRecord(8), nullptr);
  EXPECT_EQ(GameState().kittensInPlay, 1);
}

TEST_F(TaskTest, NothingOfTheGameOutlivesItsExit) {
  const std::size_t sprites = vask::CScreenLayer::GetSingletonPtr()->GetChildren().size();
  for (const int end : {0, 1, 2}) {
    StartGame();
    EXPECT_GT(pictures.alive, 0);
    Frame(20);
    CGameLogic::ShowSign("data/gfx/b_bashing.xml");
    CScoreBoard::ShowFloatingText({50, 150}, "+5");
    if (end == 1) {
      task.Pause();
    } else if (end == 2) {
      Impl().ShowGameOver();
    }
    task.Exit();
    Click();
    EXPECT_EQ(pictures.alive, 0) << end;
    EXPECT_EQ(vask::CScreenLayer::GetSingletonPtr()->GetChildren().size(), sprites);
  }
}

TEST_F(TaskTest, ASecondGameDoesNotCrash) {
  StartGame();
  {
    CBrumbleTask second;
    second.Start();
    task.Exit();
    EXPECT_EQ(CPhysicsWorld::GetGameLogicReceiver(), &second.GetImpl()->GetGameLogic());
    Pass(20);
    second.Update();
  }
  EXPECT_EQ(CPhysicsWorld::GetGameLogicReceiver(), nullptr);
}

}  // namespace
}  // namespace brumble
