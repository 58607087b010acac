#include "game/brumblegfx.h"

#include "game/brumblegfxfactory.h"
#include "game/game_support.h"
#include "game/gamelogic.h"
#include "game/gfxfactory.h"

namespace brumble {
namespace {

constexpr float kQuarterTurn = 1.5707964F;

class BridgeTest : public test::GameTest {
 protected:
  BridgeTest() {
    SetScreenTransform(kScreenOffset, kScreenScale);
    CGfxFactory::GetSingletonPtr()->Load("data/gfx/gfx_resources.xml", "GfxFactory");
    bridge.SetIndex(8);
  }
  void Report(float x, float y, float angle = 0.0F) {
    bridge.Update(x, y, angle, 2.5F, 2.5F, 1, 0);
  }
  CScreenPoint Place() const { return {bridge.GetSprite()->GetX(), bridge.GetSprite()->GetY()}; }

  CBrumbleGfx bridge{nullptr};
};

TEST_F(BridgeTest, CentresTheSpriteOrParksIt) {
  const struct {
    CVec2 at;
    CScreenPoint place;
  } cases[] = {
      {{0.0F, 0.0F}, {380, 280}},  // the very first report counts, though nothing has moved
      {{-70.0F, 0.0F}, {-40, 280}}, {{-70.2F, 0.0F}, {798, 598}}, {{70.0F, 0.0F}, {800, 280}},
      {{70.2F, 0.0F}, {798, 598}},  {{0.0F, 53.4F}, {380, 600}},  {{0.0F, 53.6F}, {798, 598}},
      {{0.0F, -53.6F}, {798, 598}}, {{0.25F, -0.6F}, {381, 276}},  // fractions drop after centring
  };
  for (const auto& c : cases) {
    Report(c.at.x, c.at.y);
    EXPECT_EQ(Place(), c.place) << c.at.x << ", " << c.at.y;
  }
}

TEST_F(BridgeTest, TurnsOnlyWhenItMovesAndLooksAsItFeels) {
  const std::string kitten = "data/gfx/kitten_0";
  const struct {
    float spin, health;
    std::string file;
  } steps[] = {
      {5.0F, 3000.0F, kitten + "1.xml"},
      {-5.1F, 1500.0F, kitten + "1_spinning_easy.xml"},
      {10.0F, 1500.0F, kitten + "1_spinning_easy.xml"},
      {-10.1F, 1500.0F, kitten + "1_spinning_hard.xml"},
      {0.0F, 1499.0F, kitten + "2.xml"},
      {0.0F, 3000.0F, kitten + "2.xml"},  // hair does not grow again
      {0.0F, 0.0F, kitten + "2.xml"},
      {6.0F, -1.0F, kitten + "3_spinning_easy.xml"},
  };
  Report(10.0F, 10.0F, 0.0F);
  Report(10.0F, 10.0F, kQuarterTurn);
  EXPECT_FLOAT_EQ(bridge.GetSprite()->GetRotation(), 360.0F);
  Report(10.5F, 10.0F, kQuarterTurn);
  for (const auto& step : steps) {
    bridge.myHealth = step.health;
    bridge.SetAngularVelocity(step.spin);
    EXPECT_EQ(bridge.GetSprite()->GetName(), step.file) << step.spin << ", " << step.health;
    EXPECT_EQ(Place(), (CScreenPoint{443, 340}));
    EXPECT_NEAR(bridge.GetSprite()->GetRotation(), 270.0F, 0.01F);
  }
  CBrumbleGfx shaved(nullptr);
  shaved.SetIndex(8);
  shaved.Update(0.0F, 0.0F, 0.0F, 2.5F, 2.5F, 1, 0);
  shaved.myHealth = -1.0F;
  shaved.SetAngularVelocity(0.0F);
  EXPECT_EQ(shaved.GetSprite()->GetName(), kitten + "3.xml") << "bald in one step";
}

TEST_F(BridgeTest, TriesAMissingSpriteOnce) {
  std::filesystem::rename("data", "away");
  Report(0.0F, 0.0F);
  std::filesystem::rename("away", "data");
  Report(1.0F, 0.0F);
  bridge.SetAngularVelocity(20.0F);
  EXPECT_EQ(bridge.GetSprite(), nullptr);
}

TEST_F(BridgeTest, TellsTheRules) {
  struct : IKittenSpawner {
    int SpawnKitten() override { return 9; }
  } spawner;
  CGameLogic logic;
  logic.SetOwner(&spawner);
  CBrumbleGfxFactory factory;
  factory.SetGameLogic(&logic);
  clock.Advance(601);
  logic.Tick();
  const auto kitten = factory.Create();
  const auto wall = factory.Create();
  EXPECT_EQ(kitten->SetIndex(9), 9);
  wall->SetIndex(3);
  kitten->Update(4.0F, 5.0F, 0.0F, 2.5F, 2.5F, 1, 0);
  kitten->OnImpact(1.0F, wall.get());
  kitten->OnImpact(1.0F, nullptr);
  EXPECT_EQ(logic.GetRecord(9)->myTouches, (std::vector<int>{3, 0}));
  EXPECT_FLOAT_EQ(logic.GetRecord(9)->myPosition.y, 5.0F);

  EXPECT_EQ(kitten->SetIndex(8), 9);
  EXPECT_EQ(logic.GetRecord(9), nullptr);
  ASSERT_NE(logic.GetRecord(8), nullptr) << "the record follows the body";
  const struct {
    float spin, health;
    bool isTold;
  } cases[] = {
      {-9.0F, 9.0F, true}, {-9.0F, 8.0F, false}, {10.0F, -11.0F, false}, {10.1F, -99.0F, true}};
  for (const auto& c : cases) {
    kitten->myHealth = c.health;
    kitten->SetAngularVelocity(c.spin);
    kitten->OnDamaged();
    EXPECT_EQ(logic.GetRecord(8)->myLastHealth == c.health, c.isTold) << c.spin << ", " << c.health;
  }
}

}  // namespace
}  // namespace brumble
