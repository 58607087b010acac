#include "game/brumblegfx.h"

#include "game/game_support.h"
#include "game/gamelogic.h"
#include "game/gfxfactory.h"

#include <fstream>
#include <map>

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
  struct {
    SVec2 at;
    SScreenPoint place;
  } const cases[] = {
      {.at = {0, 0}, .place = {380, 280}},      {.at = {0.25F, -0.6F}, .place = {381, 276}},
      {.at = {-70, 0}, .place = {-40, 280}},    {.at = {-70.2F, 0}, .place = {798, 598}},
      {.at = {70, 0}, .place = {800, 280}},     {.at = {70.2F, 0}, .place = {798, 598}},
      {.at = {0, 53.4F}, .place = {380, 600}},  {.at = {0, 53.6F}, .place = {798, 598}},
      {.at = {0, -53.6F}, .place = {798, 598}},
  };
  for (const auto& [at, place] : cases) {
    Report(at.x, at.y);
    EXPECT_EQ(Place(), place) << at.x << ", " << at.y;
  }
}

TEST_F(BridgeTest, TurnsOnlyWhenItMovesAndLooksAsItFeels) {
  struct {
    float spin, health;
    std::string look;
  } const steps[] = {
      {.spin = 5, .health = 3000, .look = "1"},
      {.spin = -5.1F, .health = 1500, .look = "1_spinning_easy"},
      {.spin = 10, .health = 1500, .look = "1_spinning_easy"},
      {.spin = -10.1F, .health = 1500, .look = "1_spinning_hard"},
      {.spin = 0, .health = 1499, .look = "2"},
      {.spin = 0, .health = 3000, .look = "2"},
      {.spin = 0, .health = 0, .look = "2"},
      {.spin = 6, .health = -1, .look = "3_spinning_easy"},
  };
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
  EXPECT_EQ(logic.GetRecord(9)->myPosition.x, 4.0F);
  EXPECT_EQ(logic.GetRecord(9)->myPosition.y, 5.0F);
  const CKittenRecord& record = *logic.GetRecord(9);
  bridge.SetAngularVelocity(-10.0F);
  bridge.myHealth = 9.0F;
  bridge.OnDamaged();
  EXPECT_EQ(record.myLastHealth, 3000.0F) << "bald and slow: the rules are not told";
  bridge.myHealth = 10.0F;
  bridge.OnDamaged();
  EXPECT_EQ(record.myLastHealth, 10.0F);
  bridge.SetAngularVelocity(-10.1F);
  bridge.myHealth = -20.0F;
  bridge.OnDamaged();
  EXPECT_EQ(record.myLastHealth, -20.0F);
}

// Of two with the same handle the first counts.
TEST_F(BridgeTest, TheSpriteTableSkipsWhatItCannotUse) {
  std::ofstream("table.xml") << R"(<GfxFactory>
      <Sprite handle="0" sprite_file="zero.xml"></Sprite><Other handle="1" sprite_file="a.xml"></Other>
      <Sprite sprite_file="b.xml"></Sprite><Sprite handle="2"></Sprite>
      <Sprite handle="three" sprite_file="c.xml"></Sprite><Sprite handle="0" sprite_file="d.xml"></Sprite>
    </GfxFactory>)";
  CGfxFactory table;
  table.Load("table.xml", "GfxFactory");
  EXPECT_EQ(table.GetFiles(), (std::map<int, std::string>{{0, "zero.xml"}}));
  table.Load("missing.xml", "GfxFactory");
  EXPECT_EQ(table.GetFile(0), "zero.xml");
  EXPECT_EQ(table.GetFile(1), "");
}

}  // namespace
}  // namespace brumble
