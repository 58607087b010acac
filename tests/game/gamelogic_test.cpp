#include "game/gamelogic.h"

#include "game/bonustable.h"
#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/gfxfactory.h"
#include "gfx/text/font.h"
#include "gfx/text/textsprite.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "platform/random.h"

namespace brumble {
namespace {

std::string theSounds;

// Takes the place of the task that plays the sounds.
struct CEar : vask::CTask {
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    theSounds += line.substr(line.find_last_of('/') + 1, 9) + " ";
    return true;
  }
};
const vask::CTaskTypeRegistrar<CEar> theEarRegistrar("ear");

class RulesTest : public test::GameTest, public IKittenSpawner {
 protected:
  RulesTest() { rules.SetOwner(this); }
  int SpawnKitten() override {
    ++spawned;
    return 8;
  }
  void PushKitten(int index, SVec2 velocity) override {
    EXPECT_EQ(index, 8);
    EXPECT_EQ(velocity.x, -20.0F);
    EXPECT_EQ(velocity.y, -20.0F);
    ++pushed;
  }
  const CKittenRecord& Spawn() {
    Pass(601);
    rules.Tick();
    return *rules.GetRecord(8);
  }
  // The touch as its other side reports it: no damage.
  void Touch(int toucher) { rules.OnKittenImpact(toucher, 1.0F, {}, 8, 0.0F); }
  void Hit(float impulse, int by) { rules.OnKittenImpact(8, impulse, {}, by, 1.0F); }
  void Spin(float spin, float health = -1.0F) { rules.OnKittenSpin(8, {}, spin, health); }
  int Stake() const { return rules.GetStakeBoard().GetTarget(); }
  int Score() const { return rules.GetScoreBoard().GetTarget(); }
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
      Pass(wait);
      rules.Tick();
      EXPECT_EQ(spawned, sum);
    }
    EXPECT_EQ(rules.GetKittensLeftBoard().GetShown(), 10 - kitten);
    rules.OnKittenInHell(9);  // an extra kitten ends nobody's turn
    EXPECT_FALSE(rules.IsGameOver());
    if (kitten % 2 == 0) {
      rules.OnKittenInOven(8);
    } else {
      rules.OnKittenInHell(8);
    }
  }
  EXPECT_TRUE(rules.IsGameOver());
  EXPECT_EQ(Score(), 5 * 500);
  rules.NewGame();
  EXPECT_FALSE(rules.IsGameOver());
  EXPECT_EQ(rules.GetRecord(8), nullptr);
  EXPECT_EQ(Stake(), 0);
  EXPECT_EQ(Score(), 0);
  EXPECT_EQ(rules.GetKittensLeftBoard().GetShown(), 10);
  Pass(600);
  rules.Tick();
  EXPECT_EQ(spawned, 10) << "the pause begins anew";
}

TEST_F(RulesTest, SpinLadders) {
  struct {
    int toucher;
    unsigned pause;
    std::vector<int> gains;
    std::string bonuses;
  } const ladders[] = {
      {kMonsterIndex, 250, {10, 20, 30, 40, 2050, 60, 70, 80, 90, 5100, 110}, "89"},
      {.toucher = 3,
       .pause = 350,
       .gains = {5, 10, 15, 20, 775, 5, 10, 15, 20, 775, 5},
       .bonuses = "77"},
  };
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
    Pass(750 - ladder.pause - 1);
    Spin(0.0F);
    EXPECT_GT(record.mySpinCount, 0);
    Pass(1);
    Spin(0.0F);
    EXPECT_EQ(record.mySpinCount, 0);
    rules.OnKittenInHell(8);
  }
}

TEST_F(RulesTest, OnlyAWallHitFromTheKittensSideScores) {
  struct {
    const char* name;
    int mine, other;
    float impulse, health;
    int points;
    std::string effect = {};
  } const cases[] = {
      {.name = "two kittens", .mine = 8, .other = 9, .impulse = 9000, .health = 1, .points = 0},
      {.name = "a new kitten", .mine = 8, .other = -1, .impulse = 9000, .health = 1, .points = 0},
      {.name = "the wall's side", .mine = 1, .other = 8, .impulse = 9000, .health = 1, .points = 0},
      {.name = "no record", .mine = 9, .other = 1, .impulse = 9000, .health = 1, .points = 0},
      {.name = "too soft", .mine = 8, .other = 1, .impulse = 3000, .health = 1, .points = 0},
      {"n = 11", 8, 1, 3100, 0, 60, "lose_hair"},
      {"bald", 8, 1, 3100, -1, 60, "hit_small"},
      {"n = 13", 8, 1, 4225, -1, 100, "hit_big"},
      {"beyond an int", 8, 1, 1e20F, -1, 1000, "hit_big"},
      {.name = "the monster's push",
       .mine = 7,
       .other = 8,
       .impulse = 9000,
       .health = 1,
       .points = 0},
      {.name = "in the same tick",
       .mine = 8,
       .other = 1,
       .impulse = 9000,
       .health = 1,
       .points = 0},
  };
  const CKittenRecord& record = Spawn();
  int sum = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    CDeathToASprite::DeleteAll();
    rules.OnKittenImpact(c.mine, c.impulse, {}, c.other, c.health);
    sum += c.points;
    EXPECT_EQ(record.myScore, sum);
    EXPECT_EQ(test::Shown("data/gfx/kitten_" + c.effect + ".xml").size(), c.points > 0 ? 1U : 0U);
    EXPECT_EQ(test::Floating().size(), c.points > 0 ? 1U : 0U);
  }
  rules.Tick();
  GameState().kittensInPlay = 3;
  Hit(40000.0F, 1);
  EXPECT_EQ(Stake(), sum + 3000);
  EXPECT_EQ(record.myDamageBonus, sum + 3000);
  rules.AwardBonus(kLongShot, {}, 0);
  EXPECT_EQ(Stake(), sum + 3000 + 3000) << "not multiplied";
  rules.SetKittenPosition(8, {20.0F, 51.0F});
  rules.OnKittenInHell(8);
  EXPECT_EQ(Stake(), 3000);
  EXPECT_EQ(Score(), 0);
  const vask::CRect<int> fire = test::Shown("data/gfx/hellfire.xml").at(0)->GetRect();
  EXPECT_EQ(fire.x + fire.w / 2, 520);
  EXPECT_EQ(fire.y + fire.h / 2, 546);
}

// Above the impulse, not by the monster, and one sound in 350 ms; which one is random.
TEST_F(RulesTest, HardTouchesOfWallsAreHeard) {
  struct CNext : vask::platform::IRandomSource {
    void Seed(unsigned) override {}
    int Next() override { return next++; }
    int next = 3;
  } random;
  vask::platform::SetRandomSource(&random);
  vask::CTaskFactory::GetSingletonPtr()->StartTask("ear", "Audio", 1, nullptr);
  Spawn();
  const auto heard = [this](unsigned wait, int toucher, float impulse) {
    theSounds.clear();
    Pass(wait);
    Hit(impulse, toucher);
    return theSounds;
  };
  EXPECT_EQ(heard(0, kRightWallIndex, 5000), "");
  EXPECT_EQ(heard(0, kMonsterIndex, 9000), "");
  EXPECT_EQ(heard(0, kRightWallIndex, 5001), "kitten_04 ");
  EXPECT_EQ(heard(350, kRightWallIndex, 5001), "");
  EXPECT_EQ(heard(1, kRightWallIndex, 5001), "kitten_05 ");
  EXPECT_EQ(heard(351, kRightWallIndex, 5001), "kitten_01 ");
  rules.OnKittenInHell(8);
  rules.OnKittenInOven(8);
  EXPECT_TRUE(theSounds.ends_with("kitten_bu kitten_bu ")) << theSounds;
  vask::platform::SetRandomSource(nullptr);
}

TEST_F(RulesTest, TheOvenBanksTheStakeWithItsBonuses) {
  // Hits of 1000 points by the wall 3 come first. The second shot, never touched, is measured from
  // the middle.
  struct {
    int hits;
    SVec2 end;
    std::vector<int> touches;
    std::string bonuses;
    int points;
  } const cases[] = {
      {.hits = 0, .end = {-49.9F, 0}, .touches = {}, .bonuses = "0", .points = 500},
      {.hits = 0, .end = {-50, 0}, .touches = {1}, .bonuses = "012", .points = 8000},
      {.hits = 0, .end = {-30, -40}, .touches = {0, 7}, .bonuses = "01", .points = 3500},
      {.hits = 0, .end = {0, 0}, .touches = {1, 7, 0}, .bonuses = "0", .points = 500},
      {.hits = 0, .end = {0, 0}, .touches = {3, 7, 1}, .bonuses = "02", .points = 5000},
      {.hits = 5, .end = {0, 0}, .touches = {}, .bonuses = "0", .points = 10500},
      {.hits = 6, .end = {0, 0}, .touches = {}, .bonuses = "05", .points = 14500},
      {.hits = 0, .end = {-64, 0}, .touches = {7, 7, 1}, .bonuses = "0162", .points = 15000},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bonuses);
    rules.NewGame();
    Spawn();
    for (int i = 0; i < c.hits; ++i) {
      Hit(40000.0F, 3);
    }
    for (const int toucher : c.touches) {
      Touch(toucher);
    }
    rules.SetKittenPosition(8, c.end);
    CDeathToASprite::DeleteAll();
    log.Clear();
    rules.OnKittenInOven(8);
    EXPECT_EQ(Bonuses(), c.bonuses);
    EXPECT_EQ(Score(), c.points);
    EXPECT_EQ(Stake(), 0);
    const auto floating = test::Floating();
    ASSERT_EQ(floating.size(), c.bonuses.size());
    for (std::size_t i = 0; i < floating.size(); ++i) {
      const vask::CRect<int> rect = floating[floating.size() - 1 - i]->GetRect();
      EXPECT_EQ(rect.y + rect.h / 2, 150 + 25 * static_cast<int>(i));
    }
  }
}

// Above y = -55.2, within 1 of where the count began: first after 8 s, then every 5 s. What begins
// the count anew: a way of more than 1, also a creeping one, and a dip into the monster's reach.
TEST_F(RulesTest, AKittenThatRestsOutOfReachIsPushedUntilItMovesOn) {
  struct {
    unsigned wait;
    SVec2 place;
    int pushes;
  } const steps[] = {
      {.wait = 0, .place = {59.4F, -62.5F}, .pushes = 0},
      {.wait = 7999, .place = {60.4F, -62.5F}, .pushes = 0},
      {.wait = 1, .place = {58.4F, -62.5F}, .pushes = 1},
      {.wait = 4999, .place = {59, -63}, .pushes = 1},
      {.wait = 1, .place = {59, -62}, .pushes = 2},
      {.wait = 4999, .place = {58, -61.5F}, .pushes = 2},
      {.wait = 7999, .place = {57.5F, -61.5F}, .pushes = 2},
      {.wait = 1, .place = {57.3F, -61.5F}, .pushes = 3},
      {.wait = 7000, .place = {56.9F, -55.3F}, .pushes = 3},
      {.wait = 7999, .place = {56.9F, -55.1F}, .pushes = 3},
      {.wait = 0, .place = {56.9F, -55.3F}, .pushes = 3},
      {.wait = 7999, .place = {56.9F, -55.3F}, .pushes = 3},
      {.wait = 1, .place = {56.9F, -56.25F}, .pushes = 4},
  };
  Spawn();
  for (const auto& step : steps) {
    rules.PauseClock();
    Pass(9000);  // counts for nothing
    rules.ResumeClock();
    Pass(step.wait);
    rules.SetKittenPosition(8, step.place);
    rules.Tick();
    EXPECT_EQ(pushed, step.pushes) << step.wait << ": " << step.place.x << ", " << step.place.y;
  }
}

TEST_F(RulesTest, QuickSignsStackDownwardAndGo) {
  const auto show = [this](unsigned wait, const std::string& file) {
    Pass(wait);
    CGameLogic::ShowSign(file);
    EXPECT_EQ(test::PlaceOf(file), (SScreenPoint{380, -40}));
    return GameState().signTargetY;
  };
  EXPECT_EQ(show(0, "data/gfx/b_one_touch.xml"), 105);
  EXPECT_EQ(show(999, "data/gfx/b_long_shot.xml"), 145);
  EXPECT_EQ(show(999, "data/gfx/b_wall_bounce.xml"), 185);
  EXPECT_EQ(show(1000, "data/gfx/b_bashing.xml"), 105);
  Pass(1000);
  EXPECT_EQ(test::PlaceOf("data/gfx/b_bashing.xml"), (SScreenPoint{380, 105}))
      << "the curve is cut off at 1";
  Pass(1070);
  vask::CFakeThread::RunThreads(0);
  EXPECT_EQ(CDeathToASprite::Count(), 1U);
  Pass(30);
  vask::CFakeThread::RunThreads(0);
  EXPECT_EQ(CDeathToASprite::Count(), 0U);
}

TEST_F(RulesTest, ANewGameWaitsBeforeItsFirstKitten) {
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

TEST_F(RulesTest, EffectsMoveFromTheirPlaceToTheirTarget) {
  const std::string file = "data/gfx/kitten_lose_hair.xml";
  CGameLogic::ShowEffect(file, {200, 300}, {400, 100}, "t");
  const vask::CRect<int> rect = test::Shown(file).at(0)->GetRect();
  const SScreenPoint start = {200 - rect.w / 2, 300 - rect.h / 2};
  EXPECT_EQ(test::PlaceOf(file), start);
  Pass(1000);
  EXPECT_EQ(test::PlaceOf(file), (SScreenPoint{(start.x + 400) / 2, (start.y + 100) / 2}));
  Pass(1000);
  EXPECT_EQ(test::PlaceOf(file), (SScreenPoint{400, 100}));
  CGameLogic::ShowEffect(kOvenBurningFile, {0, 300});
  EXPECT_EQ(test::PlaceOf(kOvenBurningFile), (SScreenPoint{0, 140})) << "that of its file";
}

TEST_F(RulesTest, FloatingNumbersRiseAndFade) {
  CScoreBoard::ShowFloatingText({50, 150}, "+5");
  vask::CSprite* const number = test::Floating().at(0);
  const vask::CRect<int> rect = number->GetRect();
  const auto font = vask::LoadFont(kDigitsFontFile);
  EXPECT_EQ(rect.w, font->GetTextWidth("+5"));
  EXPECT_EQ(rect.h, font->GetLineHeight());
  EXPECT_EQ(rect.x, 50 - rect.w / 2);
  EXPECT_EQ(rect.y, 150 - rect.h / 2);
  EXPECT_EQ(number->GetAlpha(), 0);
  for (const auto& [wait, rise] : {std::pair{100U, 15}, {650U, 106}, {750U, 149}}) {
    Pass(wait);
    EXPECT_EQ(rect.y - number->GetY(), rise);
    EXPECT_EQ(number->GetX(), rect.x);
    EXPECT_EQ(number->GetAlpha(), wait == 100U ? 0 : 255) << "changes in every second frame";
  }
  vask::CFakeThread::RunThreads(0);
  EXPECT_TRUE(test::Floating().empty());
  CScoreBoard::ShowFloatingText({50, -rect.h}, "+5");
  EXPECT_TRUE(test::Floating().empty()) << "above the screen";
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
  struct {
    int start, delta, afterFirst;
  } const cases[] = {
      {.start = 500, .delta = 7000, .afterFirst = 1611},
      {.start = 0, .delta = 40000, .afterFirst = 11111},
      {.start = 0, .delta = 30000, .afterFirst = 1111},
      {.start = 0, .delta = -7000, .afterFirst = -1111},
      {.start = -2147483647, .delta = 9, .afterFirst = -2147483646},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.delta);
    CScoreBoard board;
    board.SetPosition(270, 560);
    board.Add(500);
    EXPECT_EQ(board.GetSprite().GetX(), 270);
    EXPECT_EQ(board.GetSprite().GetY(), 560);
    board.Set(c.start);
    EXPECT_EQ(board.Add(c.delta), c.delta);
    board.Run();
    EXPECT_EQ(board.GetShown(), c.afterFirst);
    for (int run = 0, gap = std::abs(c.delta); run < 400; ++run) {
      board.Run();
      const int rest = std::abs(board.GetTarget() - board.GetShown());
      EXPECT_LE(rest, gap);
      gap = rest;
    }
    EXPECT_EQ(board.GetShown(), c.start + c.delta);
    EXPECT_EQ(board.GetSprite().GetText(), std::to_string(board.GetShown()));
  }
}

}  // namespace
}  // namespace brumble
