#include "game/gamelogic.h"

#include "game/bonustable.h"
#include "game/game_support.h"

namespace brumble {
namespace {

class RulesTest : public test::GameTest, public IKittenSpawner {
 protected:
  RulesTest() { logic.SetOwner(this); }
  int SpawnKitten() override {
    ++spawned;
    return 8;
  }
  void PushKitten(int index, SVec2 velocity) override {
    EXPECT_TRUE(index == 8 && velocity.x == -20.0F && velocity.y == -20.0F);
    ++pushed;
  }
  const CKittenRecord& Spawn() {
    Pass(601);
    logic.Tick();
    return *logic.GetRecord(8);
  }
  // The touch as its other side reports it: no damage.
  void Touch(int toucher) { logic.OnKittenImpact(toucher, 1.0F, {}, 8, 0.0F); }
  void Hit(float impulse, int by) { logic.OnKittenImpact(8, impulse, {}, by, 1.0F); }
  void Spin(float spin, float health = -1.0F) { logic.OnKittenSpin(8, {}, spin, health); }
  int Stake() const { return logic.GetStakeBoard().GetTarget(); }
  int Score() const { return logic.GetScoreBoard().GetTarget(); }
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
  CGameLogic logic;
};

TEST_F(RulesTest, DropsTenKittensOneByOneThenEndsAndBeginsAfresh) {
  for (int kitten = 1; kitten <= 10; ++kitten) {
    for (const auto& [wait, sum] : {std::pair{600U, kitten - 1}, {1U, kitten}, {5000U, kitten}}) {
      Pass(wait);
      logic.Tick();
      EXPECT_EQ(spawned, sum);
    }
    EXPECT_EQ(logic.GetKittensLeftBoard().GetShown(), 10 - kitten);
    logic.OnKittenInHell(9);  // an extra kitten ends nobody's turn
    EXPECT_FALSE(logic.IsGameOver());
    kitten % 2 == 0 ? logic.OnKittenInOven(8) : logic.OnKittenInHell(8);
  }
  EXPECT_TRUE(logic.IsGameOver());
  EXPECT_EQ(Score(), 5 * 500);
  logic.NewGame();
  EXPECT_TRUE(!logic.IsGameOver() && logic.GetRecord(8) == nullptr && Stake() + Score() == 0);
  EXPECT_EQ(logic.GetKittensLeftBoard().GetShown(), 10);
  Pass(600);
  logic.Tick();
  EXPECT_EQ(spawned, 10) << "the pause begins anew";
}

TEST_F(RulesTest, SpinLadders) {
  // clang-format off
  const struct { int toucher; unsigned pause; std::vector<int> gains; std::string bonuses; } ladders[] = {
      {kMonsterIndex, 250, {10, 20, 30, 40, 2050, 60, 70, 80, 90, 5100, 110}, "89"},
      {3, 350, {5, 10, 15, 20, 775, 5, 10, 15, 20, 775, 5}, "77"}};
  // clang-format on
  for (const auto& ladder : ladders) {
    const CKittenRecord& record = Spawn();
    for (const float health : {1501.0F, 1500.0F, 1400.0F, 0.0F}) {
      Spin(0.0F, health);
    }
    EXPECT_EQ(record.myScore, 2 * 5) << "each threshold pays once";
    Touch(ladder.toucher);
    Pass(1000);
    log.Clear();
    int expected = 10;
    for (const int gain : ladder.gains) {
      Spin(10.0F);  // too slow
      Spin(gain % 20 == 0 ? 12.0F : -12.0F);
      Pass(ladder.pause);
      Spin(12.0F);  // too early
      Pass(1);
      expected += gain;
      EXPECT_EQ(record.myScore, expected);
    }
    EXPECT_EQ(Stake(), expected);
    EXPECT_EQ(Bonuses(), ladder.bonuses);
    Pass(751);
    Spin(0.0F);
    EXPECT_EQ(record.mySpinCount, 0);
    logic.OnKittenInHell(8);
  }
}

TEST_F(RulesTest, OnlyAWallHitFromTheKittensSideScores) {
  // Two kittens, one of them new; no kitten; the wall's side; no record. Then n = 11 and 13, and
  // what would not fit into an int. Last the monster's push, which counts for one tick.
  // clang-format off
  const struct { int mine, other; float impulse, health; int points; std::string effect; } cases[] = {
      {8, 9, 9000, 1, 0, ""}, {8, -1, 9000, 1, 0, ""}, {1, 7, 9000, 1, 0, ""}, {1, 8, 9000, 1, 0, ""},
      {9, 1, 9000, 1, 0, ""}, {8, 1, 3000, 1, 0, ""}, {8, 1, 3100, 0, 60, "lose_hair"},
      {8, 1, 3100, -1, 60, "hit_small"}, {8, 1, 4225, -1, 100, "hit_big"}, {8, 1, 15625, -1, 750, "hit_big"},
      {8, 1, 40000, -1, 1000, "hit_big"}, {8, 1, 1e20F, -1, 1000, "hit_big"},
      {7, 8, 9000, 1, 0, ""}, {8, 1, 9000, 1, 0, ""}};
  // clang-format on
  const CKittenRecord& record = Spawn();
  int sum = 0;
  for (const auto& c : cases) {
    CDeathToASprite::DeleteAll();
    logic.OnKittenImpact(c.mine, c.impulse, {}, c.other, c.health);
    sum += c.points;
    EXPECT_EQ(record.myScore, sum) << c.mine << " " << c.other << " " << c.impulse;
    EXPECT_EQ(test::Shown("data/gfx/kitten_" + c.effect + ".xml").size(), c.points > 0 ? 1U : 0U);
    EXPECT_EQ(test::Floating().size(), c.points > 0 ? 1U : 0U);
  }
  logic.Tick();
  GameState().kittensInPlay = 3;
  Hit(40000.0F, 1);
  EXPECT_TRUE(Stake() == sum + 3000 && record.myDamageBonus == sum + 3000);
  logic.AwardBonus(kLongShot, {}, 0);
  EXPECT_EQ(Stake(), sum + 3000 + 3000) << "not multiplied";
  logic.OnKittenInHell(8);
  EXPECT_TRUE(Stake() == 3000 && Score() == 0);
  EXPECT_EQ(test::Shown("data/gfx/hellfire.xml").size(), 1U);
}

TEST_F(RulesTest, TheOvenBanksTheStakeWithItsBonuses) {
  // Hits of 1000 points by the wall 3 come first. The second shot, never touched, is measured from
  // the middle.
  // clang-format off
  const struct { int hits; SVec2 end; std::vector<int> touches; std::string bonuses; int points; } cases[] = {
      {0, {-49.9F, 0}, {}, "0", 500}, {0, {-50, 0}, {1}, "012", 8000},
      {0, {-30, -39}, {7, 0}, "06", 7500}, {0, {-30, -40}, {0, 7}, "01", 3500},
      {0, {0, 0}, {1, 7, 0}, "0", 500}, {0, {0, 0}, {7, 1, 7}, "0", 500}, {0, {0, 0}, {3, 7, 1}, "02", 5000},
      {5, {0, 0}, {}, "0", 10500}, {6, {0, 0}, {}, "05", 14500}, {0, {-64, 0}, {7, 7, 1}, "0162", 15000}};
  // clang-format on
  for (const auto& c : cases) {
    logic.NewGame();
    Spawn();
    for (int i = 0; i < c.hits; ++i) {
      Hit(40000.0F, 3);
    }
    for (const int toucher : c.touches) {
      Touch(toucher);
    }
    logic.SetKittenPosition(8, c.end);
    CDeathToASprite::DeleteAll();
    log.Clear();
    logic.OnKittenInOven(8);
    EXPECT_EQ(Bonuses(), c.bonuses);
    EXPECT_TRUE(Score() == c.points && Stake() == 0) << c.bonuses;
    EXPECT_EQ(test::Floating().size(), c.bonuses.size());
  }
}

// Above y = -55.2, within 1 of where the count began: first after 8 s, then every 5 s. What begins
// the count anew: a way of more than 1, also a creeping one, and a dip into the monster's reach.
TEST_F(RulesTest, AKittenThatRestsOutOfReachIsPushedUntilItMovesOn) {
  // clang-format off
  const struct { unsigned wait; SVec2 place; int pushes; } steps[] = {
      {0, {59.4F, -62.5F}, 0}, {7999, {60.4F, -62.5F}, 0}, {1, {58.4F, -62.5F}, 1}, {4999, {59, -63}, 1},
      {1, {59, -62}, 2}, {5000, {59, -62}, 3}, {4999, {58, -61.5F}, 3}, {7999, {57.5F, -61.5F}, 3},
      {1, {57.3F, -61.5F}, 4}, {4999, {56.9F, -61.5F}, 4}, {7000, {56.9F, -55.3F}, 4},
      {7999, {56.9F, -55.1F}, 4}, {9000, {56.9F, -55.1F}, 4}, {0, {56.9F, -55.3F}, 4},
      {7999, {56.9F, -55.3F}, 4}, {1, {56.9F, -56.25F}, 5}};
  // clang-format on
  Spawn();
  for (const auto& step : steps) {
    logic.PauseClock();
    Pass(9000);  // counts for nothing
    logic.ResumeClock();
    Pass(step.wait);
    logic.SetKittenPosition(8, step.place);
    logic.Tick();
    EXPECT_EQ(pushed, step.pushes) << step.wait << ": " << step.place.x << ", " << step.place.y;
  }
}

TEST_F(RulesTest, QuickSignsStackDownwardAndGo) {
  // clang-format off
  const struct { unsigned wait; int y; std::string file; } signs[] = {
      {0, 105, "one_touch"}, {999, 145, "long_shot"}, {999, 185, "wall_bounce"}, {1000, 105, "bashing"}};
  // clang-format on
  for (const auto& sign : signs) {
    Pass(sign.wait);
    CGameLogic::ShowSign("data/gfx/b_" + sign.file + ".xml");
    EXPECT_EQ(test::Shown("data/gfx/b_" + sign.file + ".xml").at(0)->GetY(), -40);
    EXPECT_EQ(GameState().signTargetY, sign.y);
  }
  Pass(1000);
  EXPECT_EQ(test::Shown("data/gfx/b_bashing.xml").at(0)->GetY(), 105)
      << "the curve is cut off at 1";
  Pass(1130);
  vask::CFakeThread::RunThreads(0);
  EXPECT_EQ(CDeathToASprite::Count(), 0U);
}

TEST_F(RulesTest, TheDoorFollowsTheLastOrder) {
  logic.GetOven()->SetPosition(0, 0);
  logic.OnDoorOpened();
  Pass(500);
  EXPECT_EQ(logic.GetOven()->GetY(), -50);
  logic.OnDoorClosed();
  for (const int y : {-25, 0, 0}) {
    Pass(500);
    EXPECT_EQ(logic.GetOven()->GetY(), y);
  }
}

TEST_F(RulesTest, BoardsRunInStagesAndNeverOvershoot) {
  // clang-format off
  const struct { int start, delta, afterFirst; } cases[] = {
      {500, 7000, 1611}, {0, 40000, 11111}, {0, 30000, 1111}, {0, 5000, 111}, {0, 100, 11},
      {0, 1, 1}, {0, -7000, -1111}, {-2147483647, 9, -2147483646}, {3, -3, 2}};
  // clang-format on
  CScoreBoard board;
  for (const auto& c : cases) {
    board.Set(c.start);
    board.Add(c.delta);
    for (int run = 0, gap = std::abs(c.delta); run < 400; ++run) {
      board.Run();
      EXPECT_TRUE(run > 0 || board.GetShown() == c.afterFirst) << c.delta;
      EXPECT_LE(std::abs(board.GetTarget() - board.GetShown()), gap);
      gap = std::abs(board.GetTarget() - board.GetShown());
    }
    EXPECT_EQ(board.GetShown(), c.start + c.delta);
  }
}

}  // namespace
}  // namespace brumble
