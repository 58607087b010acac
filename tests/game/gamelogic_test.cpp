#include "game/gamelogic.h"

#include "game/bonustable.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/gfxfactory.h"
#include "gfx/text/font.h"
#include "gfx/text/textsprite.h"
#include "kernel/applicationfactory.h"
#include "platform/random.h"

#include <tuple>

namespace brumble {
namespace {

using test::CentreOf;
using test::Floating;
using test::PlaceOf;
using test::Shown;

class RulesTest : public test::GameTest, public IKittenSpawner {
 protected:
  RulesTest() { rules.SetOwner(this); }
  int SpawnKitten() override {
    ++spawned;
    return 8;
  }
  void PushKitten(int index, SVec2 velocity) override {
    EXPECT_EQ(std::tuple(index, velocity.x, velocity.y), std::tuple(8, -20.0F, -20.0F));
    ++pushed;
  }
  void TickAfter(unsigned wait) {
    Pass(wait);
    rules.Tick();
  }
  const CKittenRecord& Spawn() {
    TickAfter(601);
    return *rules.GetRecord(8);
  }
  // The touch as its other side reports it: no damage.
  void Touch(int toucher) { rules.OnKittenImpact(toucher, 1.0F, {}, 8, 0.0F); }
  void Hit(float impulse, int by) { rules.OnKittenImpact(8, impulse, {}, by, 1.0F); }
  void Spin(float spin, float health = -1.0F) { rules.OnKittenSpin(8, {}, spin, health); }
  int Stake() const { return rules.GetStakeBoard().GetTarget(); }
  // Whether the game is over, and what its boards show or are about to show.
  std::string Describe() const {
    return (rules.IsGameOver() ? "over, left " : "left ") +
           std::to_string(rules.GetKittensLeftBoard().GetShown()) + ", stake " +
           std::to_string(Stake()) + ", score " + std::to_string(rules.GetScoreBoard().GetTarget());
  }
  // The numbers of the bonuses since the log was cleared.
  std::string Bonuses() const {
    std::string numbers;
    for (const auto& line : log.Lines()) {
      numbers += line.text.starts_with("PlayEffect: ") ? line.text.substr(12) : "";
    }
    return numbers;
  }

  int spawned = 0;
  int pushed = 0;
  CGameLogic rules;
};

TEST_F(RulesTest, DropsTenKittensOneByOneThenEndsAndBeginsAfresh) {
  for (int kitten = 1; kitten <= 10; ++kitten) {
    for (const auto& [wait, sum] : {std::pair{600U, kitten - 1}, {1U, kitten}, {5000U, kitten}}) {
      TickAfter(wait);
      EXPECT_EQ(spawned, sum);
    }
    rules.OnKittenInHell(9);  // an extra kitten ends nobody's turn
    EXPECT_EQ(rules.GetKittensLeftBoard().GetShown(), 10 - kitten);
    EXPECT_FALSE(rules.IsGameOver());
    rules.OnKittenInOven(8);
  }
  EXPECT_EQ(Describe(), "over, left 0, stake 0, score 5000");
  rules.NewGame();
  EXPECT_EQ(Describe(), "left 10, stake 0, score 0");
  EXPECT_EQ(rules.GetRecord(8), nullptr);
  TickAfter(600);
  EXPECT_EQ(spawned, 10) << "the pause begins anew";
}

TEST_F(RulesTest, SpinLadders) {
  const auto climb = [&](int toucher, unsigned pause, const std::vector<int>& gains) {
    const CKittenRecord& record = Spawn();
    for (const float health : {1501.0F, 1500.0F, 1400.0F, 0.0F}) {
      Spin(0.0F, health);
    }
    EXPECT_EQ(record.myScore, 2 * 5) << "each threshold pays once";
    Touch(toucher);
    Pass(1000);
    log.Clear();
    int expected = 10;
    for (const int gain : gains) {
      Spin(10.0F);  // too slow
      Spin(gain % 20 == 0 ? 12.0F : -12.0F);
      Pass(pause);
      Spin(12.0F);  // too early
      Pass(1);
      expected += gain;
      EXPECT_EQ(record.myScore, expected);
    }
    EXPECT_EQ(Stake(), expected);
    for (const auto& [wait, isSpinning] : {std::pair{750 - pause - 1, true}, {1U, false}}) {
      Pass(wait);
      Spin(0.0F);
      EXPECT_EQ(record.mySpinCount > 0, isSpinning);
    }
    rules.OnKittenInHell(8);
    return Bonuses();
  };
  EXPECT_EQ(climb(kMonsterIndex, 250, {10, 20, 30, 40, 2050, 60, 70, 80, 90, 5100, 110}), "89");
  EXPECT_EQ(climb(3, 350, {5, 10, 15, 20, 775, 5, 10, 15, 20, 775, 5}), "77");
}

TEST_F(RulesTest, OnlyAWallHitFromTheKittensSideScores) {
  const CKittenRecord& record = Spawn();
  // The points, the effect, and a "+" for each floating number.
  const auto impact = [&](int mine, int other, float impulse, float health) {
    CDeathToASprite::DeleteAll();
    const int before = record.myScore;
    rules.OnKittenImpact(mine, impulse, {}, other, health);
    std::string text = std::to_string(record.myScore - before);
    for (const std::string effect : {"lose_hair", "hit_small", "hit_big"}) {
      text += Shown("data/gfx/kitten_" + effect + ".xml").empty() ? "" : " " + effect;
    }
    return text + std::string(Floating().size(), '+');
  };
  EXPECT_EQ(impact(8, 9, 9000, 1), "0") << "two kittens";
  EXPECT_EQ(impact(8, -1, 9000, 1), "0") << "a new kitten";
  EXPECT_EQ(impact(1, 8, 9000, 1), "0") << "the wall's side";
  EXPECT_EQ(impact(9, 1, 9000, 1), "0") << "no record";
  EXPECT_EQ(impact(8, 1, 3000, 1), "0") << "too soft";
  EXPECT_EQ(impact(8, 1, 3100, 0), "60 lose_hair+") << "n = 11";
  EXPECT_EQ(impact(8, 1, 3100, -1), "60 hit_small+") << "bald";
  EXPECT_EQ(impact(8, 1, 4225, -1), "100 hit_big+") << "n = 13";
  EXPECT_EQ(impact(8, 1, 1e20F, -1), "1000 hit_big+") << "beyond an int";
  EXPECT_EQ(impact(kMonsterIndex, 8, 9000, 1), "0");
  EXPECT_EQ(impact(8, 1, 9000, 1), "0") << "in the tick of a push by the monster";
  rules.Tick();
  GameState().kittensInPlay = 3;
  Hit(40000.0F, 1);
  EXPECT_EQ(Stake(), 1220 + 3000);
  EXPECT_EQ(record.myDamageBonus, 1220 + 3000);
  rules.AwardBonus(kLongShot, {}, 0);
  EXPECT_EQ(Stake(), 1220 + 3000 + 3000) << "not multiplied";
  rules.SetKittenPosition(8, {20.0F, 51.0F});
  rules.OnKittenInHell(8);
  EXPECT_EQ(Describe(), "left 9, stake 3000, score 0");
  EXPECT_EQ(CentreOf("data/gfx/hellfire.xml"), "520,546");
}

// Above the impulse, not by the monster, and one sound in 350 ms; which one is random.
TEST_F(RulesTest, HardTouchesOfWallsAreHeard) {
  struct CNext : vask::platform::IRandomSource {
    void Seed(unsigned) override {}
    int Next() override { return next++; }
    int next = 3;
  } random;
  vask::platform::SetRandomSource(&random);
  Spawn();
  const auto heard = [this](unsigned wait, int toucher, float impulse) {
    audio.played.clear();
    Pass(wait);
    Hit(impulse, toucher);
    CDeathToASprite::DeleteAll();  // what is seen of the hit has a sound of its own
    return audio.played;
  };
  EXPECT_EQ(heard(0, kRightWallIndex, 5000), "");
  EXPECT_EQ(heard(0, kMonsterIndex, 9000), "");
  EXPECT_EQ(heard(0, kRightWallIndex, 5001), "kitten_04 ");
  EXPECT_EQ(heard(350, kRightWallIndex, 5001), "");
  EXPECT_EQ(heard(1, kRightWallIndex, 5001), "kitten_05 ");
  EXPECT_EQ(heard(351, kRightWallIndex, 5001), "kitten_01 ");
  rules.OnKittenInHell(8);
  rules.OnKittenInOven(8);
  EXPECT_EQ(audio.played, "kitten_01 kitten_burn kitten_burn ");
  vask::platform::SetRandomSource(nullptr);
}

TEST_F(RulesTest, TheOvenBanksTheStakeWithItsBonuses) {
  // Hits of 1000 points by the wall 3 come first. Returns the bonuses and the score.
  const auto bank = [&](int hits, SVec2 end, const std::vector<int>& touches) {
    rules.NewGame();
    Spawn();
    for (int i = 0; i < hits; ++i) {
      Hit(40000.0F, 3);
    }
    for (const int toucher : touches) {
      Touch(toucher);
    }
    rules.SetKittenPosition(8, end);
    CDeathToASprite::DeleteAll();
    log.Clear();
    rules.OnKittenInOven(8);
    const auto floating = Floating();
    for (std::size_t i = 0; i < floating.size(); ++i) {
      const std::string y = std::to_string(150 + 25 * (floating.size() - 1 - i));
      EXPECT_TRUE(CentreOf(*floating[i]).ends_with("," + y)) << y;
    }
    EXPECT_EQ(floating.size(), Bonuses().size());
    return Bonuses() + Describe().substr(6);
  };
  EXPECT_EQ(bank(0, {-49.9F, 0}, {}), "0, stake 0, score 500");
  EXPECT_EQ(bank(0, {-50, 0}, {1}), "012, stake 0, score 8000") << "from the middle";
  EXPECT_EQ(bank(0, {-30, -40}, {0, 7}), "01, stake 0, score 3500");
  EXPECT_EQ(bank(0, {0, 0}, {1, 7, 0}), "0, stake 0, score 500");
  EXPECT_EQ(bank(0, {0, 0}, {3, 7, 1}), "02, stake 0, score 5000");
  EXPECT_EQ(bank(5, {0, 0}, {}), "0, stake 0, score 10500");
  EXPECT_EQ(bank(6, {0, 0}, {}), "05, stake 0, score 14500");
  EXPECT_EQ(bank(0, {-64, 0}, {7, 7, 1}), "0162, stake 0, score 15000");
}

// Above y = -55.2, within 1 of where the count began: first after 8 s, then every 5 s. A way of
// more than 1 or a dip into the monster's reach begins it anew.
TEST_F(RulesTest, AKittenThatRestsOutOfReachIsPushedUntilItMovesOn) {
  Spawn();
  const auto pushes = [&](unsigned wait, float x, float y) {
    rules.PauseClock();
    Pass(9000);  // counts for nothing
    rules.ResumeClock();
    Pass(wait);
    rules.SetKittenPosition(8, {x, y});
    rules.Tick();
    return pushed;
  };
  EXPECT_EQ(pushes(0, 59.4F, -62.5F), 0);
  EXPECT_EQ(pushes(7999, 60.4F, -62.5F), 0);
  EXPECT_EQ(pushes(1, 58.4F, -62.5F), 1);
  EXPECT_EQ(pushes(4999, 59, -63), 1);
  EXPECT_EQ(pushes(1, 57.3F, -61.5F), 1);
  EXPECT_EQ(pushes(7000, 57.3F, -55.1F), 1);
  EXPECT_EQ(pushes(0, 57.3F, -55.3F), 1);
  EXPECT_EQ(pushes(8000, 57.3F, -56.25F), 2);
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
  for (const auto& [wait, count] : {std::pair{1070U, 1U}, {30U, 0U}}) {
    Pass(wait);
    vask::CFakeThread::RunThreads(0);
    EXPECT_EQ(CDeathToASprite::Count(), count);
  }
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

TEST_F(RulesTest, RunsItsExamples) {
  IKittenSpawner& spawner = *this;
  CGameLogic logic;
  logic.SetOwner(&spawner);
  logic.NewGame();
  logic.Tick();
  EXPECT_EQ(spawned, 0);
  vask::CSpritePtr sign = CGfxFactory::GetSingletonPtr()->LoadSprite(kScoreSignFile);
  CDeathToASprite::TakeOver(sign, 2100);
  EXPECT_EQ(CDeathToASprite::Count(), 1U);
}

TEST_F(RulesTest, FloatingNumbersRiseAndFade) {
  CScoreBoard::ShowFloatingText({50, 150}, "+5");
  vask::CSprite* const number = Floating().at(0);
  const vask::CRect<int> rect = number->GetRect();
  EXPECT_EQ(rect.w, vask::LoadFont(kDigitsFontFile)->GetTextWidth("+5"));
  EXPECT_EQ(CentreOf(*number), "50,150");
  EXPECT_EQ(number->GetAlpha(), 0);
  for (const auto& [wait, rise] : {std::pair{100U, 15}, {650U, 106}, {750U, 149}}) {
    Pass(wait);
    EXPECT_EQ(CentreOf(*number), "50," + std::to_string(150 - rise));
    EXPECT_EQ(number->GetAlpha(), wait == 100U ? 0 : 255) << "changes in every second frame";
  }
  vask::CFakeThread::RunThreads(0);
  EXPECT_TRUE(Floating().empty());
  CScoreBoard::ShowFloatingText({50, -rect.h}, "+5");
  EXPECT_TRUE(Floating().empty()) << "above the screen";
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

TEST_F(RulesTest, BoardsRunInStagesAndNeverOvershoot) {
  // What the board shows after its first run.
  const auto run = [](int start, int delta) {
    CScoreBoard board;
    board.SetPosition(270, 560);
    board.Add(500);
    EXPECT_EQ(PlaceOf(board.GetSprite()), "270,560");
    board.Set(start);
    EXPECT_EQ(board.Add(delta), delta);
    board.Run();
    const int first = board.GetShown();
    for (int i = 0, gap = std::abs(delta); i < 400; ++i) {
      board.Run();
      const int rest = std::abs(board.GetTarget() - board.GetShown());
      EXPECT_LE(rest, gap);
      gap = rest;
    }
    EXPECT_EQ(board.GetSprite().GetText(), std::to_string(start + delta));
    return first;
  };
  EXPECT_EQ(run(500, 7000), 1611);
  EXPECT_EQ(run(0, 40000), 11111);
  EXPECT_EQ(run(0, 30000), 1111);
  EXPECT_EQ(run(0, -7000), -1111);
  EXPECT_EQ(run(-2147483647, 9), -2147483646);
}

}  // namespace
}  // namespace brumble
