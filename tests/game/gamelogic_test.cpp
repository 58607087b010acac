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
  // What the lines that begin with `start` end with.
  std::string Logged(const std::string& start) const {
    std::string ends;
    for (const auto& line : log.Lines()) {
      ends += line.text.starts_with(start) ? line.text.substr(start.size()) : "";
    }
    return ends;
  }

  int spawned = 0;
  CGameLogic logic;
};

struct BlindRulesTest : RulesTest {
  BlindRulesTest() : RulesTest(false) {}
};

TEST_F(RulesTest, DropsTenKittensOneByOneAndEndsTheGame) {
  for (int kitten = 1; kitten <= 10; ++kitten) {
    Pass(600);
    logic.Tick();
    EXPECT_EQ(spawned, kitten - 1) << "too early";
    for (const unsigned wait : {1U, 5000U}) {
      Pass(wait);
      logic.Tick();
      EXPECT_EQ(spawned, kitten);
    }
    EXPECT_EQ(logic.GetKittensLeftBoard().GetShown(), 10 - kitten);
    logic.OnKittenInHell(9);  // an extra kitten ends nobody's turn
    EXPECT_FALSE(logic.IsGameOver());
    logic.OnKittenInHell(8);
  }
  EXPECT_TRUE(logic.IsGameOver());
}

TEST_F(RulesTest, NewGameForgetsTheOldOne) {
  Spawn();
  logic.OnKittenInOven(8);
  Spawn();
  logic.OnKittenImpact(8, 40000.0F, {}, 3, 1.0F);
  GameState().isGameOver = true;
  logic.NewGame();
  EXPECT_TRUE(!logic.IsGameOver() && logic.GetRecord(8) == nullptr && Stake() + Score() == 0);
  EXPECT_EQ(logic.GetKittensLeftBoard().GetShown(), 10);
  EXPECT_EQ(test::Shown("data/gfx/oven.xml").size(), 1U);
  Pass(600);
  logic.Tick();
  EXPECT_EQ(spawned, 2) << "the pause begins anew";
}

TEST_F(RulesTest, PointsAreMultipliedByTheKittensInPlayAndLostInTheFire) {
  const CKittenRecord& record = Spawn();
  GameState().kittensInPlay = 3;
  int points = 10;
  logic.AddScore(8, points);
  EXPECT_EQ(points, 30);
  logic.AddScore(0, points);
  EXPECT_EQ(points, 30) << "a bonus is not multiplied";
  EXPECT_EQ(record.myScore, 30);
  EXPECT_EQ(Stake(), 60);
  logic.SetKittenPosition(8, {10.0F, 50.1F});
  logic.OnKittenInHell(8);
  EXPECT_EQ(Stake() + Score(), 30);
  const vask::CRect<int> fire = test::Shown("data/gfx/hellfire.xml").at(0)->GetRect();
  EXPECT_TRUE(fire.x + fire.w / 2 == 460 && fire.y + fire.h / 2 == 546);
}

TEST_F(RulesTest, SpinLadders) {
  const struct {
    int toucher;
    unsigned pause;
    std::vector<int> gains;  // of one spin after the other
    std::string bonuses;
  } ladders[] = {{kMonster, 250, {10, 20, 30, 40, 2050, 60, 70, 80, 90, 5100, 110}, "89"},
                 {3, 350, {5, 10, 15, 20, 775, 5, 10, 15, 20, 775, 5}, "77"}};
  for (const auto& ladder : ladders) {
    const CKittenRecord& record = Spawn();
    for (const auto& [health, sum] : {std::pair{3000.0F, 0},
                                      {1501.0F, 0},
                                      {1500.0F, 5},
                                      {1400.0F, 5},
                                      {0.0F, 10},
                                      {-50.0F, 10}}) {
      logic.OnKittenSpin(8, {}, 0.0F, health);
      EXPECT_EQ(record.myScore, sum) << "each threshold pays once";
    }
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
    EXPECT_EQ(Logged("PlayEffect: "), ladder.bonuses);
    log.Clear();
    Pass(751);
    Spin(0.0F);
    EXPECT_EQ(Logged("kitten_spin_count: "), record.mySpinCount == 0 ? "0" : "?");
    logic.OnKittenInHell(8);
  }
}

TEST_F(RulesTest, OnlyAWallHitFromTheKittensSideScores) {
  const CKittenRecord& record = Spawn();
  // clang-format off
  const struct { int mine, other; float impulse, health; int points; const char* effect; } cases[] = {
      {8, 9, 9000, 1, 0, ""},   // two kittens
      {8, -1, 9000, 1, 0, ""},  // the other one has just been dropped
      {1, 7, 9000, 1, 0, ""},   // no kitten
      {1, 8, 9000, 1, 0, ""},   // the wall's side
      {9, 1, 9000, 1, 0, ""},   // no record
      {8, 1, 3000, 1, 0, ""},
      {8, 1, 3100, 0, 60, "data/gfx/kitten_lose_hair.xml"},     // n = 11: 5 * 121 / 100 = 6
      {8, 1, 3100, -1, 60, "data/gfx/kitten_hit_small.xml"},
      {8, 1, 4225, -1, 100, "data/gfx/kitten_hit_big.xml"},     // n = 13: halved downward
      {8, 1, 15625, -1, 750, "data/gfx/kitten_hit_big.xml"},
      {8, 1, 40000, -1, 1000, "data/gfx/kitten_hit_big.xml"},
      {8, 1, 1e20F, -1, 1000, "data/gfx/kitten_hit_big.xml"},   // would not fit into an int
  };
  // clang-format on
  const CVec2 place = {10.0F, -10.0F};
  logic.SetKittenPosition(8, place);
  int sum = 0;
  for (const auto& c : cases) {
    CDeathToASprite::DeleteAll();
    logic.OnKittenImpact(c.mine, c.impulse, place, c.other, c.health);
    sum += c.points;
    EXPECT_EQ(record.myScore, sum) << c.mine << " " << c.other << " " << c.impulse;
    ASSERT_EQ(CDeathToASprite::Count(), c.points > 0 ? 2U : 0U);
    if (c.points > 0) {
      const vask::CRect<int> rect = test::Shown(c.effect).at(0)->GetRect();
      EXPECT_EQ(rect.x + rect.w / 2, 460);
      EXPECT_EQ(test::Floating().front()->GetText(), "+" + std::to_string(c.points) + "\n");
    }
  }
  EXPECT_EQ(record.myDamageBonus, sum);
  Touch(kMonster);
  logic.OnKittenImpact(8, 9000.0F, place, 1, 1.0F);
  EXPECT_EQ(record.myDamageBonus, sum) << "the monster's push does not score in the same tick";
  logic.Tick();
  logic.OnKittenImpact(8, 9000.0F, place, 1, 1.0F);
  EXPECT_GT(record.myDamageBonus, sum);
}

TEST_F(RulesTest, HitSoundsKeepTheirDistance) {
  Spawn();
  // clang-format off
  const struct { unsigned wait; int toucher; float impulse; std::size_t heard; } cases[] = {
      {0, 1, 5001, 1}, {350, 1, 5001, 1}, {1, 7, 5001, 1}, {0, 1, 5000, 1}, {0, 1, 5001, 2}};
  // clang-format on
  for (const auto& c : cases) {
    Pass(c.wait);
    logic.OnKittenImpact(c.toucher, c.impulse, {}, 8, 0.0F);
    EXPECT_EQ(test::CFakeAudio::played.size(), c.heard);
  }
  // 16384 mod 5 is 4.
  EXPECT_EQ(test::CFakeAudio::played.front(), "PlayEffect( \"data/sfx/kitten_05.wav\" )");
}

TEST_F(RulesTest, TheOvenBanksTheStakeWithItsBonuses) {
  // Hits of 1000 points by the wall 3 come first.
  // clang-format off
  const struct {
    int wallHits; CVec2 end; std::vector<int> touches; std::string bonuses, touchCount; int points;
  } cases[] = {
      {0, {-49.9F, 0}, {}, "0", "0", 500},
      {0, {-50, 0}, {1}, "012", "0", 8000},  // never touched: measured from the middle
      {0, {-30, -39}, {7, 0}, "06", "1", 7500},
      {0, {-30, -40}, {0, 7}, "01", "1", 3500},
      {0, {0, 0}, {1, 7, 0}, "0", "1", 500},
      {0, {0, 0}, {7, 1, 7}, "0", "2", 500},
      {0, {0, 0}, {3, 7, 1}, "02", "1", 5000},
      {5, {0, 0}, {}, "0", "0", 10500},
      {6, {0, 0}, {}, "05", "0", 14500},
      {0, {-64, 0}, {7, 7, 1}, "0162", "2", 15000},
  };
  // clang-format on
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
    EXPECT_EQ(Logged("PlayEffect: "), c.bonuses);
    EXPECT_EQ(Logged("brum_touch_count: "), c.touchCount) << c.bonuses;
    EXPECT_EQ(Logged("kitten_damage_bonus: "), std::to_string(1000 * c.wallHits));
    EXPECT_EQ(Score(), c.points) << c.bonuses;
    EXPECT_EQ(Stake(), 0);
    const std::vector<vask::CTextSprite*> texts = test::Floating();
    ASSERT_EQ(texts.size(), c.bonuses.size());
    EXPECT_EQ(texts.front()->GetY() - texts.back()->GetY(),
              25 * (static_cast<int>(texts.size()) - 1));
    EXPECT_EQ(texts.back()->GetY(), 150 - texts.back()->GetRect().h / 2);
    EXPECT_EQ(test::CFakeAudio::played.back(), "PlayEffect( \"data/sfx/kitten_burn.wav\" )");
  }
}

TEST_F(RulesTest, QuickSignsStackDownwardAndGo) {
  // clang-format off
  const struct { unsigned wait; int bonus, lines; } cases[] = {
      {0, 0, 0}, {999, 1, 1}, {999, 2, 2}, {1000, 5, 0}};
  // clang-format on
  for (const auto& c : cases) {
    Pass(c.wait);
    const std::string file = FindBonus(c.bonus).signFile;
    CGameLogic::ShowSign(file);
    const vask::CRect<int> start = test::Shown(file).at(0)->GetRect();
    EXPECT_TRUE(start.x == 400 - start.w / 2 && start.y == -start.h);
    EXPECT_EQ(GameState().signTargetY, 125 - start.h / 2 + c.lines * start.h) << file;
  }
  const vask::CSprite& last = *test::Shown(FindBonus(5).signFile).at(0);
  Pass(1000);
  EXPECT_EQ(last.GetY(), GameState().signTargetY) << "the curve is cut off at 1 halfway";
  // The boards, which run every 30 ms, hold the later threads back.
  for (const auto& [wait, alive] : {std::pair{1099U, 1U}, {30U, 0U}}) {
    Pass(wait);
    vask::CFakeThread::RunThreads(0);
    EXPECT_EQ(CDeathToASprite::Count(), alive);
  }
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
  for (const int y : {-25, 0, 0}) {
    Pass(500);
    EXPECT_EQ(oven.GetY(), y);
  }
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
  CScoreBoard::ShowFloatingText({50, 150}, "+20");
  EXPECT_EQ(CDeathToASprite::Count(), 0U);
}

TEST_F(RulesTest, BoardsRunInStagesEvery30MillisecondsAndNeverOvershoot) {
  CScoreBoard board;
  // clang-format off
  const struct { int start, delta, afterFirst; } cases[] = {
      {500, 7000, 1611}, {0, 40000, 11111}, {0, 30000, 1111}, {0, 5000, 111}, {0, 100, 11},
      {0, 1, 1}, {0, -7000, -1111}, {-2147483647, 9, -2147483646}};
  // clang-format on
  for (const auto& c : cases) {
    board.Set(c.start);
    EXPECT_EQ(board.Add(c.delta), c.delta);
    board.Run();
    EXPECT_EQ(board.GetSprite().GetText(), std::to_string(c.afterFirst));
    for (int i = 0, gap = std::abs(c.delta); i < 400; ++i) {
      board.Run();
      const int newGap = std::abs(board.GetTarget() - board.GetShown());
      EXPECT_LE(newGap, gap);
      gap = newGap;
    }
    EXPECT_EQ(board.GetShown(), c.start + c.delta);
  }
  board.Set(3);
  board.Add(-3);
  for (const int expected : {2, 1, 0}) {
    vask::CFakeThread::RunThreads(0);
    Pass(29);
    vask::CFakeThread::RunThreads(0);
    EXPECT_EQ(board.GetShown(), expected);
    Pass(1);
  }
}

TEST_F(RulesTest, FloatingTextStartsCentredRisesFadesAndGoes) {
  const std::unique_ptr<vask::CFont> font = vask::LoadFont("data/gfx/numbers.ogf");
  const int w = font->GetTextWidth("+20");
  const int h = font->GetLineHeight();
  CScoreBoard::ShowFloatingText({50, -h}, "+20");
  EXPECT_TRUE(test::Floating().empty()) << "above the screen";
  CScoreBoard::ShowFloatingText({50, 150}, "+20");
  const vask::CTextSprite& text = *test::Floating().at(0);
  EXPECT_EQ(text.GetRect(), (vask::CRect<int>{50 - w / 2, 150 - h / 2, w, h}));
  EXPECT_EQ(text.GetAlpha(), 0);
  Pass(700);  // half of the fade, whose curve is cut off at 1
  Pass(0);    // only every second call changes the alpha
  EXPECT_EQ(text.GetAlpha(), 255);
  Pass(799);
  EXPECT_NEAR(text.GetY(), 150 - h / 2 - 150, 1);
  for (const auto& [wait, alive] : {std::pair{0U, 1U}, {31U, 0U}}) {
    Pass(wait);
    vask::CFakeThread::RunThreads(0);
    EXPECT_EQ(test::Floating().size(), alive);
  }
}

}  // namespace
}  // namespace brumble
