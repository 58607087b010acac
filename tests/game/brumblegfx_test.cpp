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
    SetScreenTransform(kScreenOffset, kScreenScale);
    CGfxFactory::GetSingletonPtr()->Load("data/gfx/gfx_resources.xml", "GfxFactory");
    bridge.SetIndex(8);
  }
  int SpawnKitten() override { return 8; }
  void PushKitten(int, SVec2) override {}
  void Report(float x, float y, float angle = 0.0F) {
    bridge.Update(x, y, angle, 2.5F, 2.5F, 1, 0);
  }
  std::string Place() const { return test::PlaceOf(*bridge.GetSprite()); }

  CGameLogic logic;
  CBrumbleGfx bridge{&logic};
};

// The very first report counts, though nothing has moved. Fractions drop after centring.
TEST_F(BridgeTest, CentresTheSpriteOrParksIt) {
  const std::pair<SVec2, const char*> reports[] = {
      {{0, 0}, "380,280"},      {{0.25F, -0.6F}, "381,276"}, {{-70, 0}, "-40,280"},
      {{-70.2F, 0}, "798,598"}, {{70, 0}, "800,280"},        {{70.2F, 0}, "798,598"},
      {{0, 53.4F}, "380,600"},  {{0, 53.6F}, "798,598"},     {{0, -53.6F}, "798,598"},
  };
  for (const auto& [at, place] : reports) {
    Report(at.x, at.y);
    EXPECT_EQ(Place(), place) << at.x << ", " << at.y;
  }
}

TEST_F(BridgeTest, TurnsOnlyWhenItMovesAndLooksAsItFeels) {
  Report(10.0F, 10.0F, 1.5707964F);
  Report(10.0F, 10.0F, 3.0F);
  const auto look = [this](float spin, float health) {
    bridge.myHealth = health;
    bridge.SetAngularVelocity(spin);
    EXPECT_EQ(Place(), "440,340");
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

TEST_F(BridgeTest, TellsTheRulesAndTakesItsRecordAlong) {
  logic.SetOwner(this);
  Pass(601);
  logic.Tick();
  EXPECT_EQ(bridge.SetIndex(9), 8);
  EXPECT_EQ(logic.GetRecord(8), nullptr);
  const CKittenRecord& record = *logic.GetRecord(9);
  CBrumbleGfx wall(&logic);
  wall.SetIndex(3);
  bridge.OnImpact(1.0F, &wall);
  bridge.OnImpact(1.0F, nullptr);
  EXPECT_EQ(record.myTouches, (std::vector<int>{3, 0}));
  bridge.SetAngularVelocity(-10.0F);
  for (const auto& [health, told] : {std::pair{9.0F, 3000.0F}, {10.0F, 10.0F}}) {
    bridge.myHealth = health;
    bridge.OnDamaged();
    EXPECT_EQ(record.myLastHealth, told) << "when bald and slow, the rules are not told";
  }
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
