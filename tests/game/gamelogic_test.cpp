#include "game/gamelogic.h"

#include "game/bonustable.h"
#include "game/game_support.h"

namespace brumble {
namespace {

class RulesTest : public test::GameTest, public IKittenSpawner {
 protected:
  explicit RulesTest(bool withData = true) : GameTest(withData) {
    SetScreenTransform(kScreenOffset, kScreenScale);
    logic.SetOwner(this);
  }
  int SpawnKitten() override {
    ++spawned;
    return 8;
  }
  const CKittenRecord& Spawn() {
    Pass(601);
    logic.Tick();
    return *logic.GetRecord(8);
  }
  // The touch as its other side reports it: no damage.
  void Touch(int toucher) { logic.OnKittenImpact(toucher, 1.0F, {0.0F, 0.0F}, 8, 0.0F); }
  void Spin(float spin) { logic.OnKittenSpin(8, {0.0F, 0.0F}, spin, -1.0F); }
  int Stake() const { return logic.GetStakeBoard().GetTarget(); }
  int Score() const { return logic.GetScoreBoard().GetTarget(); }

  int spawned = 0;
  CGameLogic logic;
};

class BlindRulesTest : public RulesTest {
 protected:
  BlindRulesTest() : RulesTest(false) {}
};

TEST_F(RulesTest, DropsTenKittensOneByOneAndEndsTheGame) {
  for (int kitten = 1; kitten <= 10; ++kitten) {
    clock.Advance(600);
    logic.Tick();
    EXPECT_EQ(spawned, kitten - 1) << "too early";
    clock.Advance(1);
    logic.Tick();
    clock.Advance(5000);
    logic.Tick();
    EXPECT_EQ(spawned, kitten);
    EXPECT_EQ(logic.GetKittensLeftBoard().GetShown(), 10 - kitten);
    logic.OnKittenInHell(9);  // an extra kitten ends nobody's turn
    EXPECT_FALSE(logic.IsGameOver());
    logic.OnKittenInHell(8);
  }
  EXPECT_TRUE(logic.IsGameOver());
  clock.Advance(5000);
  logic.Tick();
  EXPECT_EQ(spawned, 10);
}

TEST_F(RulesTest, NewGameForgetsTheOldOne) {
  Spawn();
  logic.OnKittenInOven(8);
  Spawn();
  int points = 70;
  logic.AddScore(8, points);
  GameState().isGameOver = true;
  logic.NewGame();
  EXPECT_FALSE(logic.IsGameOver());
  EXPECT_EQ(logic.GetRecord(8), nullptr);
  EXPECT_EQ(Stake() + Score(), 0);
  EXPECT_EQ(logic.GetKittensLeftBoard().GetShown(), 10);
  EXPECT_EQ(test::Shown("data/gfx/oven.xml").size(), 1U);
  clock.Advance(600);
  logic.Tick();
  EXPECT_EQ(spawned, 2) << "the pause begins anew";
}

TEST_F(RulesTest, PointsAreMultipliedByTheKittensInPlay) {
  const CKittenRecord& record = Spawn();
  GameState().kittensInPlay = 3;
  int points = 10;
  logic.AddScore(8, points);
  EXPECT_EQ(points, 30);
  logic.AddScore(0, points);
  EXPECT_EQ(points, 30) << "a bonus is not multiplied";
  EXPECT_EQ(record.myScore, 30);
  EXPECT_EQ(Stake(), 60);
}

TEST_F(RulesTest, SpinLadders) {
  const struct {
    int toucher;
    unsigned pause;
    std::vector<int> gains;  // of one spin after the other
    std::string bonuses;
  } ladders[] = {
      {kMonster,
       250,
       {10, 20, 30, 40, 2050, 60, 70, 80, 90, 5100, 110, 120, 130, 140, 5150},
       "899"},
      {3, 350, {5, 10, 15, 20, 775, 5, 10, 15, 20, 775}, "77"},
  };
  for (const auto& ladder : ladders) {
    const CKittenRecord& record = Spawn();
    Spin(0.0F);  // the thresholds of health, out of the way
    Touch(ladder.toucher);
    Pass(1000);
    log.Clear();
    int expected = record.myScore;
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
    std::string bonuses;
    for (const auto& line : log.Lines()) {
      bonuses += line.text.starts_with("PlayEffect: ") ? line.text.substr(12) : "";
    }
    EXPECT_EQ(bonuses, ladder.bonuses);
    Pass(751);
    Spin(0.0F);
    EXPECT_EQ(record.mySpinCount, 0);
    EXPECT_EQ(log.Lines().back().text, "kitten_spin_count: 0");
    logic.OnKittenInHell(8);
  }
}

TEST_F(RulesTest, OnlyAWallHitFromTheKittensSideScores) {
  const CKittenRecord& record = Spawn();
  const struct {
    int mine, other;
    float impulse, health;
    int points;
    const char* effect;
  } cases[] = {
      {8, 9, 9000.0F, 1.0F, 0, ""},   // two kittens
      {8, -1, 9000.0F, 1.0F, 0, ""},  // the other one has just been dropped
      {1, 7, 9000.0F, 1.0F, 0, ""},   // no kitten
      {1, 8, 9000.0F, 1.0F, 0, ""},   // the wall's side
      {9, 1, 9000.0F, 1.0F, 0, ""},   // no record
      {8, 1, 3000.0F, 1.0F, 0, ""},
      {8, 1, 3100.0F, 0.0F, 60, "data/gfx/kitten_lose_hair.xml"},
      {8, 1, 3100.0F, -1.0F, 60, "data/gfx/kitten_hit_small.xml"},
      {8, 1, 40000.0F, -1.0F, 1000, "data/gfx/kitten_hit_big.xml"},
  };
  const CVec2 place = {10.0F, -10.0F};
  logic.SetKittenPosition(8, place);
  for (const auto& c : cases) {
    const int before = record.myScore;
    CDeathToASprite::DeleteAll();
    logic.OnKittenImpact(c.mine, c.impulse, place, c.other, c.health);
    EXPECT_EQ(record.myScore, before + c.points) << c.mine << " " << c.other << " " << c.impulse;
    ASSERT_EQ(CDeathToASprite::Count(), c.points > 0 ? 2U : 0U);
    if (c.points > 0) {
      const vask::CRect<int> rect = test::Shown(c.effect).front()->GetRect();
      EXPECT_EQ(rect.x + rect.w / 2, 460);
      EXPECT_EQ(test::Floating().front()->GetText(), "+" + std::to_string(c.points) + "\n");
    }
  }
  EXPECT_EQ(record.myDamageBonus, 1120);
  EXPECT_EQ(record.myTouches, (std::vector<int>{1, 1, 1, 1, 1}));
  Touch(kMonster);
  logic.OnKittenImpact(8, 9000.0F, place, 1, 1.0F);
  EXPECT_EQ(record.myDamageBonus, 1120) << "the monster's push does not score in the same tick";
  logic.Tick();
  logic.OnKittenImpact(8, 9000.0F, place, 1, 1.0F);
  EXPECT_GT(record.myDamageBonus, 1120);
}

TEST_F(RulesTest, HitSoundsKeepTheirDistance) {
  Spawn();
  const struct {
    unsigned wait;
    int toucher;
    float impulse;
    std::size_t heard;
  } cases[] = {{0, 1, 5001.0F, 1},
               {350, 1, 5001.0F, 1},
               {1, 7, 5001.0F, 1},
               {0, 1, 5000.0F, 1},
               {0, 1, 5001.0F, 2}};
  for (const auto& c : cases) {
    Pass(c.wait);
    logic.OnKittenImpact(c.toucher, c.impulse, {}, 8, 0.0F);
    EXPECT_EQ(test::CFakeAudio::played.size(), c.heard);
  }
  // 16384 mod 5 is 4.
  EXPECT_EQ(test::CFakeAudio::played.front(), "PlayEffect( \"data/sfx/kitten_05.wav\" )");
}

TEST_F(RulesTest, TheOvenBanksTheStakeWithItsBonuses) {
  const std::string counted = "brum_touch_count: ";
  const struct {
    int wallHits;  // of 1000 points
    CVec2 end;
    std::vector<int> touches;
    std::string log;  // bonuses, with the touch count among them
    int points;
  } cases[] = {
      {0, {-49.9F, 0}, {}, "0t0", 500},
      {0, {-50, 0}, {1}, "01t02", 8000},  // never touched: measured from the middle
      {0, {-30, -39}, {7}, "0t16", 7500},
      {0, {-30, -40}, {0, 7}, "01t1", 3500},
      {5, {-1, 0}, {}, "0t0", 10500},
      {6, {-1, 0}, {}, "05t0", 14500},
      {0, {-64, 0}, {7, 7, 1}, "01t262", 15000},
  };
  for (const auto& c : cases) {
    logic.NewGame();
    Spawn();
    for (int i = 0; i < c.wallHits; ++i) {
      logic.OnKittenImpact(8, 40000.0F, {}, 3, 1.0F);
    }
    for (const int toucher : c.touches) {
      Touch(toucher);
    }
    logic.SetKittenPosition(8, c.end);
    CDeathToASprite::DeleteAll();
    log.Clear();
    logic.OnKittenInOven(8);
    std::string lines;
    for (const auto& line : log.Lines()) {
      lines += line.text.starts_with(counted) ? "t" : "";
      lines += line.text.starts_with("kitten") ? ' ' : line.text.back();
    }
    EXPECT_EQ(lines, " " + c.log);
    EXPECT_EQ(Score(), c.points) << c.log;
    EXPECT_EQ(Stake(), 0);
    EXPECT_EQ(logic.GetRecord(8), nullptr);
    const std::vector<vask::CTextSprite*> texts = test::Floating();
    ASSERT_EQ(texts.size(), c.log.size() - 2);
    EXPECT_EQ(texts.front()->GetY() - texts.back()->GetY(),
              25 * (static_cast<int>(texts.size()) - 1));
    EXPECT_EQ(texts.back()->GetY(), 150 - texts.back()->GetRect().h / 2);
    EXPECT_EQ(test::CFakeAudio::played.back(), "PlayEffect( \"data/sfx/kitten_burn.wav\" )");
  }
}

TEST_F(RulesTest, TheFireTakesTheStake) {
  Spawn();
  int points = 70;
  logic.AddScore(8, points);
  logic.SetKittenPosition(8, {10.0F, 50.1F});
  logic.OnKittenInHell(8);
  EXPECT_EQ(Stake() + Score(), 0);
  ASSERT_EQ(test::Shown("data/gfx/hellfire.xml").size(), 1U);
  const vask::CRect<int> fire = test::Shown("data/gfx/hellfire.xml").front()->GetRect();
  EXPECT_EQ(fire.x + fire.w / 2, 460);
  EXPECT_EQ(fire.y + fire.h / 2, 546);
}

TEST_F(RulesTest, QuickSignsStackDownwardAndGo) {
  const struct {
    unsigned wait;
    int bonus, lines;
  } cases[] = {{0, 0, 0}, {999, 1, 1}, {999, 2, 2}, {1000, 5, 0}};
  for (const auto& c : cases) {
    Pass(c.wait);
    const std::string file = FindBonus(c.bonus).signFile;
    CGameLogic::ShowSign(file);
    const vask::CRect<int> start = test::Shown(file).front()->GetRect();
    EXPECT_EQ(start.x, 400 - start.w / 2);
    EXPECT_EQ(start.y, -start.h);
    EXPECT_EQ(GameState().signTargetY, 125 - start.h / 2 + c.lines * start.h) << file;
  }
  const vask::CSprite& last = *test::Shown(FindBonus(5).signFile).front();
  Pass(1000);
  EXPECT_EQ(last.GetY(), GameState().signTargetY) << "the curve is cut off at 1 halfway";
  Pass(1099);
  vask::CFakeThread::RunThreads(0);
  EXPECT_EQ(CDeathToASprite::Count(), 1U);
  Pass(30);  // the boards, which run every 30 ms, hold the later threads back
  vask::CFakeThread::RunThreads(0);
  EXPECT_EQ(CDeathToASprite::Count(), 0U);
  CGameLogic::ShowSign("data/gfx/none.xml");
  EXPECT_TRUE(log.Has("Couldn't load sprite: data/gfx/none.xml"));
}

TEST_F(RulesTest, TheDoorFollowsTheLastOrder) {
  vask::CSprite& oven = *logic.GetOven();
  oven.SetPosition(0, 0);
  logic.OnDoorOpened();
  Pass(500);
  EXPECT_EQ(oven.GetY(), -50);
  logic.OnDoorClosed();
  Pass(500);
  EXPECT_EQ(oven.GetY(), -25);
  Pass(600);
  EXPECT_EQ(oven.GetY(), 0);
}

TEST_F(BlindRulesTest, PlayWithoutPicturesAndSounds) {
  Spawn();
  logic.OnDoorOpened();
  Pass(400);
  Spin(12.0F);
  logic.OnKittenImpact(8, 40000.0F, {}, 3, 1.0F);
  logic.OnKittenInOven(8);
  logic.OnDoorClosed();
  EXPECT_EQ(Score(), 15 + 1000 + 1500);
  EXPECT_EQ(CDeathToASprite::Count(), 0U);
}

}  // namespace
}  // namespace brumble
