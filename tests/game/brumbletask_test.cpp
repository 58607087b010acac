#include "game/brumbletask.h"

#include "game/brumbleingameui.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "gfx/animation/animatedsprite.h"
#include "gfx/sdl/sdltextures.h"
#include "support/eventrecorder.h"
#include "ui/desktopwidget.h"

#include <cmath>
#include <regex>

namespace brumble {
namespace {

using Ui = CBrumbleTaskImpl::CBrumbleInGameUi;
constexpr int kLeft = vask::kLeftButton, kMiddle = vask::kMiddleButton;
constexpr int kHelp = Ui::kHelpOrGameOver;

class TaskTest : public test::GameTaskTest {
 protected:
  // 0 during play.
  int Screen() const { return Impl().GetScreen() != nullptr ? Impl().GetScreen()->GetState() : 0; }
  // How many steps the last body, a kitten that falls freely, has made; the air hardly counts.
  long Steps() const { return std::lround(Bodies().back().vy / (9.83F * 0.015F)); }

  vask::test::CNotingHardware cursor;
};

TEST_F(TaskTest, ScreensFollowTheLeftButtonAndFreezeTheWorld) {
  struct {
    bool endsGame = false;
    int button = vask::kNoButton, screen = 0;
    std::string shown, gone;
  } const clicks[] = {
      {.button = kMiddle, .screen = Ui::kTitle, .shown = "title_best", .gone = "help_screen"},
      {.button = kLeft, .screen = kHelp, .shown = "help_bubbles", .gone = "title_best"},
      {.button = vask::kWheelDown, .screen = kHelp, .shown = "help_screen", .gone = "background"},
      {.button = kLeft, .screen = 0, .shown = "background", .gone = "help_bubbles"},
      {.button = kLeft, .screen = 0, .shown = "background", .gone = "help_screen"},
      {.endsGame = true, .screen = kHelp, .shown = "gameover", .gone = "title_screen"},
      {.button = kLeft, .screen = 0, .shown = "background", .gone = "gameover"},
  };
  EnterScore({.score = 1, .date = Today(), .more = ""});
  task.Start();
  for (const auto& c : clicks) {
    SCOPED_TRACE(c.shown);
    if (c.endsGame) {
      EndGame();
    }
    Click(c.button);
    EXPECT_EQ(Screen(), c.screen);
    EXPECT_EQ(cursor.last, c.screen != 0 ? "show" : "hide");
    EXPECT_EQ(test::Shown("data/gfx/" + c.shown + ".xml").size(), 1U);
    EXPECT_TRUE(test::Shown("data/gfx/" + c.gone + ".xml").empty()) << c.gone;
    task.ExecuteCommand("");
    Frame(6);
    EXPECT_EQ(Steps(), c.screen == 0 ? 1 : 0);
  }
  EXPECT_EQ(GameState().kittensLeft, 10) << "a new game";
}

TEST_F(TaskTest, AClickOnAWidgetIsNotForTheScreen) {
  task.Start();
  vask::CEventBridge::GetSingletonPtr()->Resize(800, 600);
  const vask::ui::CWidget widget(vask::ui::CDesktopWidget::GetSingletonPtr(), {0, 0, 800, 600},
                                 false, "", {});
  Click();
  EXPECT_EQ(Screen(), Ui::kTitle);
}

// The first kitten is due 600 ms after the start of the game.
TEST_F(TaskTest, NoTimeOfTheGamePassesInAPauseAlsoOneThatBeganOnTheTitle) {
  task.Start();
  task.Pause();
  Click();
  Click();
  for (const int kittens : {0, 0, 0, 1}) {
    EXPECT_EQ(cursor.last, "show");
    EXPECT_EQ(vask::CScreenLayer::GetSingletonPtr()->GetChildren()[0]->GetName(), kPausedFile);
    Frame(5000);
    task.Resume();
    EXPECT_EQ(cursor.last, "hide");
    EXPECT_TRUE(test::Shown(kPausedFile).empty());
    Frame(151);
    EXPECT_EQ(GameState().kittensInPlay, kittens);
    task.Pause();
  }
}

TEST_F(TaskTest, NothingOfTheGameOutlivesItsExit) {
  const auto sprites = vask::CScreenLayer::GetSingletonPtr()->GetChildren();
  for (const bool isOver : {false, true}) {
    StartGame();
    CGameLogic::ShowSign("data/gfx/b_bashing.xml");
    CScoreBoard::ShowFloatingText({50, 150}, "+5");
    if (isOver) {
      Impl().ShowGameOver();
    } else {
      task.Pause();
    }
    task.Exit();
    Click();
    for (const auto& entry : std::filesystem::directory_iterator("data/gfx")) {
      EXPECT_FALSE(vask::CSDLTextures::GetSingletonPtr()->Exists(entry.path())) << entry;
    }
    EXPECT_EQ(vask::CScreenLayer::GetSingletonPtr()->GetChildren(), sprites);
  }
  EXPECT_FALSE(log.Has("FreeImage"));
}

// Whatever is shown before the panel of the end.
TEST_F(TaskTest, PicturesOfPlayAreDecodedBeforeIt) {
  task.Start();
  const std::regex wanted("data/gfx/(?!panel_|rank_|title_best).*png");
  for (const auto& entry : std::filesystem::directory_iterator("data/gfx")) {
    const std::string file = entry.path();
    EXPECT_EQ(vask::CSDLTextures::GetSingletonPtr()->Exists(file), std::regex_match(file, wanted))
        << file;
  }
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
  EXPECT_NE(paused.find("says_"), std::string::npos);
  EXPECT_EQ(sceneAfter(20), paused);
  task.Resume();
  EXPECT_NE(sceneAfter(20), paused);
  Impl().ShowGameOver();
  const std::string over = sceneAfter(1);
  EXPECT_EQ(sceneAfter(20), over);
}

TEST_F(TaskTest, AGameWithAnExtraKittenEntersNoScore) {
  StartGame();
  task.ExecuteCommand("");
  EndGame();
  EXPECT_TRUE(ReadScores()->empty());
}

}  // namespace
}  // namespace brumble
