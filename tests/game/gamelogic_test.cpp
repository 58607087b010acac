#include "game/gamelogic.h"

#include "game/bonustable.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "gfx/text/font.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"
#include "platform/random.h"

#include <utility>

namespace brumble {
namespace {

using test::CentreOf;
using test::Floating;
using test::PlaceOf;
using test::Shown;

constexpr int kLeft = 0, kRight = kRightWallIndex, kUpperRight = 3;  // walls

class RulesTest : public test::GameTest, public IKittenSpawner {
 protected:
  RulesTest() { rules.SetOwner(this); }
  int SpawnKitten() override {
    ++spawned;
    return kFirstKittenIndex;
  }
  void PushKitten(int index, SVec2) override { pushed += index == kFirstKittenIndex ? 1 : 0; }
  void TickAfter(unsigned wait) {
    Pass(wait);
    rules.Tick();
  }
  const CKittenRecord& Spawn() {
    TickAfter(601);
    return *rules.GetRecord(kFirstKittenIndex);
  }
  // The touch as its other side reports it: no damage.
  void Touch(int toucher) { rules.OnKittenImpact(toucher, 1.0F, {}, kFirstKittenIndex, 0.0F); }
  void Hit(float impulse, int by) {
    rules.OnKittenImpact(kFirstKittenIndex, impulse, {}, by, 1.0F);
  }
  int Stake() const { return rules.GetStakeBoard().GetTarget(); }
  // Whether the game is over, and what its boards show or are about to show.
  std::string Describe() const {
    return (rules.IsGameOver() ? "over, left " : "left ") +
           std::to_string(rules.GetKittensLeftBoard().GetShown()) + ", stake " +
           std::to_string(Stake()) + ", score " + std::to_string(rules.GetScoreBoard().GetTarget());
  }

  int spawned = 0;
  int pushed = 0;
  CGameLogic rules;
};

TEST_F(RulesTest, ANewGameBeginsAfreshAlsoInTheMiddleOfOne) {
  Spawn();
  Hit(40000.0F, kRight);
  rules.OnKittenInHell(kFirstKittenIndex + 1);  // an extra kitten ends nobody's turn
  EXPECT_EQ(Describe(), "left 9, stake 1000, score 0");
  rules.NewGame();
  EXPECT_EQ(Describe(), "left 10, stake 0, score 0");
  EXPECT_EQ(rules.GetRecord(kFirstKittenIndex), nullptr);
  TickAfter(600);
  EXPECT_EQ(spawned, 1) << "the pause begins anew";
  TickAfter(1);
  EXPECT_EQ(spawned, 2);
}

TEST_F(RulesTest, WallHitsShowTheirPointsAndWhatBecomesOfTheHair) {
  const CKittenRecord& record = Spawn();
  // The points, the effect, and a "+" for each floating number.
  const auto impact = [&](float impulse, float health) {
    CDeathToASprite::DeleteAll();
    const int before = record.myScore;
    rules.OnKittenImpact(kFirstKittenIndex, impulse, {}, kRight, health);
    std::string text = std::to_string(record.myScore - before);
    for (const std::string effect : {"lose_hair", "hit_small", "hit_big"}) {
      text += Shown("data/gfx/kitten_" + effect + ".xml").empty() ? "" : " " + effect;
    }
    return text + std::string(Floating().size(), '+');
  };
  EXPECT_EQ(impact(3000, 1), "0") << "too soft";
  EXPECT_EQ(impact(3100, 0), "60 lose_hair+") << "n = 11";
  EXPECT_EQ(impact(3100, -1), "60 hit_small+") << "bald";
  EXPECT_EQ(impact(4225, -1), "100 hit_big+") << "n = 13";
  EXPECT_EQ(impact(1e20F, -1), "1000 hit_big+") << "beyond an int";
  GameState().kittensInPlay = 3;
  EXPECT_EQ(impact(40000, 1), "3000 lose_hair+") << "for each kitten in play";
  rules.AwardBonus(kLongShot, {}, 0);
  EXPECT_EQ(Stake(), 4220 + 3000) << "a bonus is not multiplied";
  Touch(kMonsterIndex);
  EXPECT_EQ(impact(9000, 1), "0") << "in the tick of a push by the monster";
  rules.SetKittenPosition(kFirstKittenIndex, {20.0F, 51.0F});
  rules.OnKittenInHell(kFirstKittenIndex);
  EXPECT_EQ(Describe(), "left 9, stake 3000, score 0");
  EXPECT_EQ(CentreOf(*Shown("data/gfx/hellfire.xml").at(0)), "520,546");
}

// Above the impulse, and one sound in 350 ms; which one is random.
TEST_F(RulesTest, HardTouchesOfWallsAreHeard) {
  vask::platform::SeedRand(22);
  Spawn();
  const auto heard = [this](unsigned wait, float impulse) {
    Pass(wait);
    rules.OnKittenImpact(kRight, impulse, {}, kFirstKittenIndex, 0.0F);
    return std::exchange(audio.played, "");
  };
  EXPECT_EQ(heard(0, 5000), "") << "too soft";
  EXPECT_EQ(heard(0, 5001), "kitten_05 ");
  EXPECT_EQ(heard(350, 9000), "") << "too soon";
  EXPECT_EQ(heard(1, 9000), "kitten_02 ");
  rules.OnKittenInHell(kFirstKittenIndex);
  rules.OnKittenInOven(kFirstKittenIndex);
  EXPECT_EQ(audio.played, "kitten_burn kitten_burn ");
}

TEST_F(RulesTest, TheOvenBanksTheStakeWithItsBonuses) {
  // Hits of 1000 points by a wall come first. Returns the bonuses, by the numbers that EBonus gives
  // them, and the score.
  const auto bank = [&](int hits, SVec2 end, const std::vector<int>& touches) {
    rules.NewGame();
    Spawn();
    for (int i = 0; i < hits; ++i) {
      Hit(40000.0F, kUpperRight);
    }
    for (const int toucher : touches) {
      Touch(toucher);
    }
    rules.SetKittenPosition(kFirstKittenIndex, end);
    CDeathToASprite::DeleteAll();
    log.Clear();
    rules.OnKittenInOven(kFirstKittenIndex);
    std::string bonuses;
    for (const auto& line : log.Lines()) {
      bonuses += line.starts_with("PlayEffect: ") ? line.substr(12, 1) : "";
    }
    const auto floating = Floating();
    EXPECT_EQ(floating.size(), bonuses.size());
    for (std::size_t i = 0; i < floating.size(); ++i) {
      EXPECT_EQ(CentreOf(*floating[i]), "50," + std::to_string(125 + 25 * (floating.size() - i)));
      EXPECT_EQ(Shown(FindBonus(bonuses[i] - '0').signFile).size(), 1U) << bonuses[i];
    }
    const SEarnings& banked = rules.GetStory().banked;
    const int score = rules.GetScoreBoard().GetTarget();
    EXPECT_EQ(banked.spins + banked.walls + banked.oven + banked.bonuses, score);
    EXPECT_EQ(Stake(), 0);
    return bonuses + ", score " + std::to_string(score);
  };
  EXPECT_EQ(bank(0, {-49.9F, 0}, {kRight, kMonsterIndex, kLeft}), "0, score 500");
  EXPECT_EQ(bank(0, {-30, -40}, {kLeft, kMonsterIndex, kRight}), "012, score 8000");
  EXPECT_EQ(bank(5, {0, 0}, {}), "0, score 10500");
  EXPECT_EQ(bank(6, {-64, 0}, {}), "051, score 17500");
  EXPECT_EQ(bank(0, {-64, 0}, {kMonsterIndex, kMonsterIndex, kRight}), "0162, score 15000");
}

// First after 8 s, then every 5 s. What counts as rest, the recorded games tell.
TEST_F(RulesTest, AKittenThatRestsOutOfReachIsPushedUntilItMovesOn) {
  Spawn();
  const auto pushes = [&](unsigned wait, float x) {
    Pass(wait);
    rules.SetKittenPosition(kFirstKittenIndex, {x, -62.5F});
    rules.Tick();
    return pushed;
  };
  EXPECT_EQ(pushes(0, 59), 0);
  EXPECT_EQ(pushes(7999, 59), 0);
  EXPECT_EQ(pushes(1, 59), 1);
  EXPECT_EQ(pushes(4999, 59), 1);
  EXPECT_EQ(pushes(1, 59), 2);
  EXPECT_EQ(pushes(5000, 57), 2) << "it has moved";
  EXPECT_EQ(pushes(7999, 57), 2);
  EXPECT_EQ(pushes(1, 57), 3);
}

TEST_F(RulesTest, QuickSignsStackDownwardAndGo) {
  const auto show = [this](unsigned wait, const std::string& file) {
    Pass(wait);
    CGameLogic::ShowSign(file);
    EXPECT_EQ(PlaceOf(file), "250,-88");
    return GameState().signTargetY;
  };
  EXPECT_EQ(show(0, "data/gfx/b_one_touch.xml"), 81);
  EXPECT_EQ(show(999, "data/gfx/b_long_shot.xml"), 169);
  EXPECT_EQ(show(999, "data/gfx/b_wall_bounce.xml"), 257);
  EXPECT_EQ(show(1000, "data/gfx/b_bashing.xml"), 81);
  Pass(1000);
  EXPECT_EQ(PlaceOf("data/gfx/b_bashing.xml"), "250,81") << "the curve is cut off at 1";
  for (const unsigned wait : {1070U, 30U}) {
    EXPECT_EQ(Shown("data/gfx/b_bashing.xml").size(), 1U);
    Pass(wait);
    vask::CFakeThread::RunThreads(0);
  }
  EXPECT_TRUE(Shown("data/gfx/b_bashing.xml").empty());
}

TEST_F(RulesTest, SignsOfOneMomentSoundInTurn) {
  for (const char* const file : {"grilled_kitten", "one_touch", "wall_bounce"}) {
    CGameLogic::ShowSign(std::string("data/gfx/b_") + file + ".xml");
  }
  for (const char* const heard : {"bonus_1 ", "bonus_1 bonus_3 ", "bonus_1 bonus_3 bonus_2 "}) {
    Pass(0);
    EXPECT_EQ(audio.played, heard);
    Pass(149);
    EXPECT_EQ(audio.played, heard);
    Pass(1);
  }
}

TEST_F(RulesTest, FloatingNumbersRiseAndFade) {
  CScoreBoard::ShowFloatingText({50, 150}, "+5");
  vask::CSprite* const number = Floating().at(0);
  const int height = number->GetRect().h;
  EXPECT_EQ(number->GetRect().w, vask::LoadFont(kDigitsFontFile)->GetTextWidth("+5"));
  std::string course;
  for (const unsigned wait : {100U, 650U, 750U, 0U}) {
    course += CentreOf(*number) + " " + std::to_string(number->GetAlpha()) + "; ";
    Pass(wait);
  }
  EXPECT_EQ(course, "50,150 0; 50,135 0; 50,44 255; 50,1 255; ") << "alpha in every second frame";
  vask::CFakeThread::RunThreads(0);
  CScoreBoard::ShowFloatingText({50, -height}, "+5");
  EXPECT_TRUE(Floating().empty()) << "it has gone, and none is above the screen";
}

TEST_F(RulesTest, TheDoorFollowsTheLastOrder) {
  rules.GetOven()->SetPosition(0, 0);
  rules.OnDoorOpened();
  Pass(500);
  EXPECT_EQ(rules.GetOven()->GetY(), -50);
  rules.OnDoorClosed();
  for (const int y : {-25, 0, 0}) {
    Pass(500);
    EXPECT_EQ(rules.GetOven()->GetY(), y);
  }
}

// A step of 1 at any gap, of 10 beyond 10, of 100 beyond 100, of 1000 beyond 5000, and of 10000
// beyond 30000, one after the other.
TEST_F(RulesTest, BoardsRunInStagesAndNeverOvershoot) {
  const auto firstStep = [](int gap) {
    CScoreBoard board;
    board.SetPosition(270, 560);
    board.Add(500);
    board.Set(3);
    board.Add(gap);
    board.Run();
    const int step = board.GetShown() - 3;
    for (int i = 0; i < 300; ++i) {
      board.Run();
      EXPECT_LE(std::abs(board.GetShown() - 3), std::abs(gap));
    }
    EXPECT_EQ(board.GetSprite().GetText(), std::to_string(3 + gap));
    return step;
  };
  for (const int sign : {1, -1}) {
    std::string steps;
    for (const int gap : {11, 12, 111, 112, 5111, 5112, 31111, 31112}) {
      steps += std::to_string(sign * firstStep(sign * gap)) + " ";
    }
    EXPECT_EQ(steps, "1 11 11 111 111 1111 1111 11111 ") << sign;
  }
}

}  // namespace
}  // namespace brumble
