#include "game/brumblegfx.h"

#include "game/game_support.h"
#include "game/gamelogic.h"
#include "game/gfxfactory.h"

namespace brumble {
namespace {

class BridgeTest : public test::GameTest, public IKittenSpawner {
 protected:
  BridgeTest() {
    SetScreenTransform(kScreenOffset, kScreenScale);
    CGfxFactory::GetSingletonPtr()->Load("data/gfx/gfx_resources.xml", "GfxFactory");
    bridge.SetIndex(8);
  }
  int SpawnKitten() override { return 8; }
  void PushKitten(int, SVec2) override {}
  void Report(float x, float y, float angle = 0.0F) {
    bridge.Update(x, y, angle, 2.5F, 2.5F, 1, 0);
  }
  SScreenPoint Place() const { return {bridge.GetSprite()->GetX(), bridge.GetSprite()->GetY()}; }

  CGameLogic logic;
  CBrumbleGfx bridge{&logic};
};

// The very first report counts, though nothing has moved. Fractions drop after centring.
TEST_F(BridgeTest, CentresTheSpriteOrParksIt) {
  // clang-format off
  const std::pair<SVec2, SScreenPoint> cases[] = {
      {{0, 0}, {380, 280}}, {{0.25F, -0.6F}, {381, 276}}, {{-70, 0}, {-40, 280}}, {{-70.2F, 0}, {798, 598}},
      {{70, 0}, {800, 280}}, {{70.2F, 0}, {798, 598}}, {{0, 53.4F}, {380, 600}}, {{0, 53.6F}, {798, 598}},
      {{0, -53.6F}, {798, 598}}};
  // clang-format on
  for (const auto& [at, place] : cases) {
    Report(at.x, at.y);
    EXPECT_EQ(Place(), place) << at.x << ", " << at.y;
  }
}

TEST_F(BridgeTest, TurnsOnlyWhenItMovesAndLooksAsItFeels) {
  // clang-format off
  const struct { float spin, health; std::string look; } steps[] = {
      {5, 3000, "1"}, {-5.1F, 1500, "1_spinning_easy"}, {10, 1500, "1_spinning_easy"},
      {-10.1F, 1500, "1_spinning_hard"}, {0, 1499, "2"}, {0, 3000, "2"}, {0, 0, "2"},
      {6, -1, "3_spinning_easy"}};
  // clang-format on
  Report(10.0F, 10.0F, 1.5707964F);
  Report(10.0F, 10.0F, 3.0F);
  for (const auto& step : steps) {
    bridge.myHealth = step.health;
    bridge.SetAngularVelocity(step.spin);
    EXPECT_EQ(bridge.GetSprite()->GetName(), "data/gfx/kitten_0" + step.look + ".xml");
    EXPECT_EQ(Place(), (SScreenPoint{440, 340}));
    EXPECT_NEAR(bridge.GetSprite()->GetRotation(), 270.0F, 0.01F);
  }
}

TEST_F(BridgeTest, TellsTheRulesAndTakesItsRecordAlong) {
  logic.SetOwner(this);
  Pass(601);
  logic.Tick();
  EXPECT_EQ(bridge.SetIndex(9), 8);
  EXPECT_EQ(logic.GetRecord(8), nullptr);
  ASSERT_NE(logic.GetRecord(9), nullptr);
  Report(4.0F, 5.0F);
  CBrumbleGfx wall(&logic);
  wall.SetIndex(3);
  bridge.OnImpact(1.0F, &wall);
  bridge.OnImpact(1.0F, nullptr);
  EXPECT_EQ(logic.GetRecord(9)->myTouches, (std::vector<int>{3, 0}));
  EXPECT_EQ(logic.GetRecord(9)->myPosition.y, 5.0F);
}

}  // namespace
}  // namespace brumble
