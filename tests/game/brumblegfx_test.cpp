#include "game/brumblegfx.h"

#include "game/game_support.h"
#include "game/gamelogic.h"
#include "game/gfxfactory.h"
#include "game/physics/arena.h"
#include "gfx/animation/animatedsprite.h"

namespace brumble {
namespace {

class BridgeTest : public test::GameTest, public IKittenSpawner {
 protected:
  BridgeTest() {
    CGfxFactory::GetSingletonPtr()->Load("data/gfx/gfx_resources.xml", "GfxFactory");
    bridge.SetIndex(kFirstKittenIndex);
  }
  int SpawnKitten() override { return kFirstKittenIndex; }
  void PushKitten(int, SVec2) override {}
  void Report(float x, float y, float angle = 0.0F) {
    bridge.Update(x, y, angle, 2.5F, 2.5F, 1, 0);
  }
  std::string Place() const { return test::PlaceOf(*bridge.GetSprite()); }

  CGameLogic logic;
  CBrumbleGfx bridge{&logic};
};

TEST_F(BridgeTest, CentresTheSpriteOrParksIt) {
  const auto placeAt = [this](float x, float y) {
    Report(x, y);
    return Place();
  };
  const std::string parked = "798,598";
  EXPECT_EQ(placeAt(0, 0), "376,276") << "the first report counts, though nothing has moved";
  EXPECT_EQ(placeAt(0.25F, -0.6F), "377,272") << "fractions drop after centring";
  EXPECT_EQ(placeAt(-70.7F, 0), "-48,276");
  EXPECT_EQ(placeAt(-70.9F, 0), parked) << "on the left";
  EXPECT_EQ(placeAt(70.7F, 0), "800,276");
  EXPECT_EQ(placeAt(70.9F, 0), parked) << "on the right";
  EXPECT_EQ(placeAt(0, 54), "376,600");
  EXPECT_EQ(placeAt(0, 54.2F), parked) << "below";
  EXPECT_EQ(placeAt(0, -54), "376,-48");
  EXPECT_EQ(placeAt(0, -54.2F), parked) << "above";
}

TEST_F(BridgeTest, TurnsOnlyWhenItMovesAndLooksAsItFeels) {
  Report(10.0F, 10.0F, 1.5707964F);
  Report(10.0F, 10.0F, 3.0F);
  const auto look = [this](float spin, float health) {
    bridge.myHealth = health;
    bridge.SetAngularVelocity(spin);
    EXPECT_EQ(Place(), "436,336");
    EXPECT_NEAR(bridge.GetSprite()->GetRotation(), 270.0F, 0.01F);
    return bridge.GetSprite()->GetName();
  };
  EXPECT_EQ(look(5, 3000), "data/gfx/kitten_01.xml");
  EXPECT_EQ(look(-5.1F, 1500), "data/gfx/kitten_01_spinning_easy.xml");
  EXPECT_EQ(look(10, 1500), "data/gfx/kitten_01_spinning_easy.xml");
  EXPECT_EQ(look(-10.1F, 1500), "data/gfx/kitten_01_spinning_hard.xml");
  EXPECT_EQ(look(0, 1499), "data/gfx/kitten_02.xml");
  EXPECT_EQ(look(0, 0), "data/gfx/kitten_02.xml");
  EXPECT_EQ(look(6, -1), "data/gfx/kitten_03_spinning_easy.xml");
}

TEST_F(BridgeTest, AKittenWhoseLookIsMissingGetsItsFirstOneBack) {
  Report(0, 0);
  std::filesystem::rename("data", "elsewhere");
  bridge.SetAngularVelocity(6);
  EXPECT_FALSE(bridge.GetSprite());
  std::filesystem::rename("elsewhere", "data");
  Report(0, 0);
  EXPECT_EQ(test::Shown("data/gfx/kitten_01.xml").size(), 1U);
}

TEST_F(BridgeTest, TellsTheRulesAndTakesItsRecordAlong) {
  logic.SetOwner(this);
  Pass(601);
  logic.Tick();
  EXPECT_EQ(bridge.SetIndex(kFirstKittenIndex + 1), kFirstKittenIndex);
  EXPECT_EQ(logic.GetRecord(kFirstKittenIndex), nullptr);
  const CKittenRecord& record = *logic.GetRecord(kFirstKittenIndex + 1);
  CBrumbleGfx wall(&logic);
  wall.SetIndex(kRightWallIndex);
  bridge.OnImpact(1.0F, &wall);
  bridge.OnImpact(1.0F, nullptr);
  EXPECT_EQ(record.myTouches, (std::vector<int>{kRightWallIndex, 0}));
  bridge.SetAngularVelocity(-10.0F);
  bridge.myHealth = 9.0F;
  bridge.OnDamaged();
  EXPECT_EQ(record.myLastHealth, 3000.0F) << "bald and slow, the rules are not told";
  bridge.myHealth = 10.0F;
  bridge.OnDamaged();
  EXPECT_EQ(record.myLastHealth, 10.0F);
}

TEST_F(BridgeTest, TheMonsterShowsWhatItHits) {
  CBrumbleGfx monster(&logic);
  monster.SetIndex(kMonsterIndex);
  monster.Update(0, 0, 0, 5, 5, 0, 0);
  auto& sprite = dynamic_cast<vask::CAnimatedSprite&>(*monster.GetSprite());
  monster.OnImpact(1.0F, nullptr);
  EXPECT_EQ(sprite.GetAnimationName(), "idle");
  monster.OnImpact(1.0F, &bridge);
  EXPECT_EQ(sprite.GetAnimationName(), "hit");
}

}  // namespace
}  // namespace brumble
