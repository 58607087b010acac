#include "game/brumbletask.h"

#include "events/eventbridge.h"
#include "game/brumbleingameui.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/physics/physicsgfxbridge.h"
#include "game/scores.h"
#include "gfx/animation/animatedsprite.h"
#include "input/buttons.h"
#include "input/mouse.h"
#include "platform/wallclock.h"
#include "ui/desktopwidget.h"

#include <cmath>
#include <functional>
#include <tuple>

namespace brumble {
namespace {

using Ui = CBrumbleTaskImpl::CBrumbleInGameUi;
constexpr int kLeft = vask::kLeftButton, kMiddle = vask::kMiddleButton;
constexpr int kHelp = Ui::kHelpOrGameOver;

class TaskTest : public test::GameTest, public vask::IMouseHardware {
 protected:
  TaskTest() { vask::CEventBridge::GetSingletonPtr()->SetMouseHardware(this); }
  ~TaskTest() override { vask::CEventBridge::GetSingletonPtr()->ClearMouseHardware(); }
  void ShowCursor() override { isCursorShown = true; }
  void HideCursor() override { isCursorShown = false; }
  void ChangeCursor(int) override {}
  void GrabInput(bool) override {}

  static void Click(int button = kLeft) {
    vask::CMouse::GetSingletonPtr()->OnMouseButtonDown(button);
  }
  // On a widget over the whole screen.
  static void ClickOnWidget(int button) {
    vask::CEventBridge::GetSingletonPtr()->Resize(800, 600);
    const vask::ui::CWidget widget(vask::ui::CDesktopWidget::GetSingletonPtr(), {0, 0, 800, 600},
                                   false, "", {});
    Click(button);
  }
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
  std::vector<CPhysicsBody>& Bodies() const {
    return const_cast<std::vector<CPhysicsBody>&>(Impl().GetWorld().GetBodies());
  }
  static std::string Frontmost() {
    return vask::CScreenLayer::GetSingletonPtr()->GetChildren().front()->GetName();
  }
  // 0 during play.
  int Screen() const { return Impl().GetScreen() != nullptr ? Impl().GetScreen()->GetState() : 0; }
  // How many steps the last body, a kitten that falls freely, has made; the air hardly counts.
  long Steps() const { return std::lround(Bodies().back().vy / (9.83F * 0.015F)); }

  bool isCursorShown = false;
  CBrumbleTask task;
};

TEST_F(TaskTest, ScreensFollowTheLeftButtonAndFreezeTheWorld) {
  struct {
    int button, screen;
    std::string shown, gone;
  } const clicks[] = {
      {.button = kMiddle, .screen = Ui::kTitle, .shown = "title_screen", .gone = "help_screen"},
      {.button = kLeft, .screen = kHelp, .shown = "help_bubbles", .gone = "title_screen"},
      {.button = vask::kWheelDown, .screen = kHelp, .shown = "help_screen", .gone = "background"},
      {.button = kLeft, .screen = 0, .shown = "background", .gone = "help_bubbles"},
      {.button = kLeft, .screen = 0, .shown = "background", .gone = "help_screen"},
      {.button = vask::kNoButton, .screen = kHelp, .shown = "gameover", .gone = "title_screen"},
      {.button = kLeft, .screen = 0, .shown = "background", .gone = "gameover"},
  };
  task.Start();
  for (const auto& c : clicks) {
    SCOPED_TRACE(c.shown);
    if (c.shown == "gameover") {
      GameState().isGameOver = true;
      Frame(101);
    }
    const int before = Screen();
    ClickOnWidget(c.button);
    EXPECT_EQ(Screen(), before);
    Click(c.button);
    EXPECT_EQ(Screen(), c.screen);
    EXPECT_EQ(isCursorShown, c.screen != 0);
    EXPECT_EQ(test::Shown("data/gfx/" + c.shown + ".xml").size(), 1U);
    EXPECT_TRUE(test::Shown("data/gfx/" + c.gone + ".xml").empty()) << c.gone;
    task.ExecuteCommand("");
    task.Pause();
    EXPECT_TRUE(isCursorShown);
    EXPECT_EQ(Frontmost(), "data/gfx/paused.xml");
    task.Resume();
    EXPECT_FALSE(isCursorShown);
    EXPECT_TRUE(test::Shown("data/gfx/paused.xml").empty());
    Frame(6);
    EXPECT_EQ(Steps(), c.screen == 0 ? 1 : 0);
    isCursorShown = c.screen != 0;
  }
  EXPECT_EQ(GameState().kittensLeft, 10);
  EXPECT_FALSE(GameState().isGameOver) << "a new game";
}

// 6 - 5 leaves 1, 12 - 10 leaves 2, and after a fourth step in one frame the rest is dropped.
TEST_F(TaskTest, StepsTheWorldByItsClockUnlessPaused) {
  struct {
    unsigned time;
    int steps;
  } const frames[] = {{5, 0}, {1, 1}, {11, 3}, {3, 3}, {1, 4}, {30, 8}, {5, 8}, {20, 12}, {6, 13}};
  StartGame();
  vask::CEventBridge::GetSingletonPtr()->MouseMove(800, 300, 0, 0);
  task.ExecuteCommand("");
  for (const auto& [frame, steps] : frames) {
    Frame(frame);
    EXPECT_EQ(Steps(), steps) << frame;
    task.Pause();
    Frame(1000);
    task.Resume();
  }
  EXPECT_GT(Bodies()[kMonsterIndex].vx, 0.0F) << "after the pointer";
}

// The first kitten is due 600 ms after the start of the game.
TEST_F(TaskTest, NoTimeOfTheGamePassesInAPauseAlsoOneThatBeganOnTheTitle) {
  task.Start();
  task.Pause();
  Click();
  Click();
  EXPECT_TRUE(isCursorShown);
  EXPECT_EQ(Frontmost(), "data/gfx/paused.xml");
  for (const int kittens : {0, 0, 0, 1}) {
    Frame(5000);
    task.Resume();
    Frame(151);
    EXPECT_EQ(GameState().kittensInPlay, kittens);
    task.Pause();
  }
}

TEST_F(TaskTest, NothingOfTheGameOutlivesItsExit) {
  const auto sprites = vask::CScreenLayer::GetSingletonPtr()->GetChildren();
  for (const bool isOver : {false, true}) {
    StartGame();
    // 8 signs, 9 looks of kittens, 9 bodies
    EXPECT_GE(pictures.alive, static_cast<int>(kSpriteFiles.size()) + 26) << "decoded before play";
    CGameLogic::ShowSign("data/gfx/b_bashing.xml");
    CScoreBoard::ShowFloatingText({50, 150}, "+5");
    if (isOver) {
      Impl().ShowGameOver();
    } else {
      task.Pause();
    }
    task.Exit();
    Click();
    EXPECT_EQ(pictures.alive, 0) << isOver;
    EXPECT_EQ(vask::CScreenLayer::GetSingletonPtr()->GetChildren(), sprites);
  }
  EXPECT_FALSE(log.Has("FreeImage"));
}

TEST_F(TaskTest, TheCastStandsStillWhileTheGameDoes) {
  const auto sceneAfter = [this](int frames) {
    for (int frame = 0; frame < frames; ++frame) {
      Frame(90);
    }
    CDeathToASprite::DeleteAll();  // effects fade at any time
    std::string text;
    for (vask::CSprite* sprite : vask::CScreenLayer::GetSingletonPtr()->GetChildren()) {
      text += sprite->GetName() + " " + test::PlaceOf(*sprite);
      if (const auto* animated = dynamic_cast<vask::CAnimatedSprite*>(sprite)) {
        text += " " + std::to_string(animated->GetCurrentFrame());
      }
    }
    return text;
  };
  StartGame();
  task.ExecuteCommand("");
  const_cast<CGameLogic&>(Impl().GetGameLogic()).OnDoorOpened();
  sceneAfter(20);
  Bodies().back().bridge->myHealth = 1000.0F;  // it says something
  sceneAfter(1);
  task.Pause();
  const std::string paused = sceneAfter(0);
  EXPECT_EQ(sceneAfter(20), paused);
  task.Resume();
  EXPECT_NE(sceneAfter(20), paused);
  const std::size_t scores = ReadScores()->size();
  Impl().ShowGameOver();
  EXPECT_EQ(ReadScores()->size(), scores) << "there was an extra kitten";
  const std::string over = sceneAfter(1);
  EXPECT_EQ(sceneAfter(20), over);
}

// What the cast shows must not draw from the random numbers of the game.
TEST_F(TaskTest, AWholeGameIsTheSameWithAndWithoutPictures) {
  vask::platform::SetWallClock([] { return std::int64_t{1}; });  // the seed
  const auto play = [this] {
    StartGame();
    std::string places;
    for (int frame = 0; frame < 5000 && Screen() == 0; ++frame) {
      const int x = static_cast<int>(400 + 350 * std::sin(0.2 * frame));
      const int y = static_cast<int>(400 + 150 * std::cos(0.074 * frame));
      vask::CEventBridge::GetSingletonPtr()->MouseMove(x, y, 0, 0);
      Frame(20);
      for (const CPhysicsBody& body : Bodies()) {
        places += std::to_string(body.x) + " " + std::to_string(body.angle) + " ";
      }
    }
    EXPECT_TRUE(log.Has("Gameover"));
    EXPECT_GT(BestScore(), 0) << "all has happened";
    task.Exit();
    log.Clear();
    return std::hash<std::string>()(places);
  };
  const std::size_t withPictures = play();
  std::filesystem::remove("data");
  vask::Gfx::SetFactory(nullptr);
  EXPECT_EQ(play(), withPictures);
  vask::platform::SetWallClock(nullptr);
}

// It lies on the shelf between the right wall's top and the shaft.
TEST_F(TaskTest, AKittenThatRestsOutOfReachIsPushed) {
  StartGame();
  const auto play = [this](int frames, const std::function<bool()>& isDone) {
    for (int frame = 0; frame < frames && !isDone(); ++frame) {
      Frame(20);
    }
  };
  play(50, [] { return GameState().kittensInPlay > 0; });
  CPhysicsBody& kitten = Bodies().at(8);
  std::tie(kitten.x, kitten.y, kitten.angle) = std::tuple(59.4F, -62.5F, 0.02F);
  play(390, [] { return false; });
  EXPECT_NEAR(kitten.y, -62.5F, 0.1F) << "it comes to rest there";
  play(30, [&] { return kitten.vx <= -20.0F; });
  EXPECT_EQ(std::pair(kitten.vx, kitten.vy), std::pair(-20.0F, -20.0F));
}

}  // namespace
}  // namespace brumble
