#include "game/brumblegfx.h"

#include <fstream>

#include "game/brumblegfxfactory.h"
#include "game/game_support.h"
#include "game/gamelogic.h"
#include "game/gfxfactory.h"
#include "utils/xml/xml.h"

namespace brumble {
namespace {

constexpr float kQuarterTurn = 1.5707964F;

class BridgeTest : public test::GameTest, public IKittenSpawner {
 protected:
  BridgeTest() {
    SetScreenTransform(kScreenOffset, kScreenScale);
    CGfxFactory::GetSingletonPtr()->Load("data/gfx/gfx_resources.xml", "GfxFactory");
    bridge.SetIndex(8);
  }
  int SpawnKitten() override { return 9; }
  void Report(float x, float y, float angle = 0.0F) {
    bridge.Update(x, y, angle, 2.5F, 2.5F, 1, 0);
  }
  CScreenPoint Place() const { return {bridge.GetSprite()->GetX(), bridge.GetSprite()->GetY()}; }

  CBrumbleGfx bridge{nullptr};
};

TEST_F(BridgeTest, CentresTheSpriteOrParksIt) {
  const std::pair<CVec2, CScreenPoint> cases[] = {
      {{0.0F, 0.0F}, {380, 280}},  // the very first report counts, though nothing has moved
      {{-70.0F, 0.0F}, {-40, 280}}, {{-70.2F, 0.0F}, {798, 598}}, {{70.0F, 0.0F}, {800, 280}},
      {{70.2F, 0.0F}, {798, 598}},  {{0.0F, 53.4F}, {380, 600}},  {{0.0F, 53.6F}, {798, 598}},
      {{0.0F, -53.6F}, {798, 598}}, {{0.25F, -0.6F}, {381, 276}},  // fractions drop after centring
  };
  for (const auto& [at, place] : cases) {
    Report(at.x, at.y);
    EXPECT_EQ(Place(), place) << at.x << ", " << at.y;
  }
}

TEST_F(BridgeTest, TurnsOnlyWhenItMovesAndLooksAsItFeels) {
  const struct {
    float spin, health;
    std::string look;
  } steps[] = {
      {5.0F, 3000.0F, "1"},
      {-5.1F, 1500.0F, "1_spinning_easy"},
      {10.0F, 1500.0F, "1_spinning_easy"},
      {-10.1F, 1500.0F, "1_spinning_hard"},
      {0.0F, 1499.0F, "2"},
      {0.0F, 3000.0F, "2"},  // hair does not grow again
      {0.0F, 0.0F, "2"},
      {6.0F, -1.0F, "3_spinning_easy"},
  };
  Report(10.0F, 10.0F, 0.0F);
  Report(10.0F, 10.0F, kQuarterTurn);
  EXPECT_FLOAT_EQ(bridge.GetSprite()->GetRotation(), 360.0F);
  Report(10.5F, 10.0F, kQuarterTurn);
  for (const auto& step : steps) {
    bridge.myHealth = step.health;
    bridge.SetAngularVelocity(step.spin);
    EXPECT_EQ(bridge.GetSprite()->GetName(), "data/gfx/kitten_0" + step.look + ".xml");
    EXPECT_EQ(Place(), (CScreenPoint{443, 340}));
    EXPECT_NEAR(bridge.GetSprite()->GetRotation(), 270.0F, 0.01F);
  }
}

TEST_F(BridgeTest, TriesAMissingSpriteOnceAndFallsBackFromAMissingLook) {
  std::filesystem::rename("data", "away");
  Report(0.0F, 0.0F);
  std::filesystem::rename("away", "data");
  Report(1.0F, 0.0F);
  bridge.SetAngularVelocity(20.0F);
  EXPECT_EQ(bridge.GetSprite(), nullptr);

  CBrumbleGfx other(nullptr);
  other.SetIndex(9);
  other.Update(0.0F, 0.0F, 0.0F, 2.5F, 2.5F, 1, 0);
  other.myHealth = -1.0F;  // bald in one step
  std::filesystem::rename("data", "away");
  other.SetAngularVelocity(0.0F);
  std::filesystem::rename("away", "data");
  EXPECT_EQ(other.GetSprite(), nullptr);
  other.Update(1.0F, 0.0F, 0.0F, 2.5F, 2.5F, 1, 0);
  EXPECT_EQ(other.GetSprite()->GetName(), "data/gfx/kitten_01.xml");
  other.SetAngularVelocity(6.0F);
  EXPECT_EQ(other.GetSprite()->GetName(), "data/gfx/kitten_03_spinning_easy.xml");
}

TEST_F(BridgeTest, TellsTheRules) {
  CGameLogic logic;
  logic.SetOwner(this);
  CBrumbleGfxFactory factory;
  factory.SetGameLogic(&logic);
  Pass(601);
  logic.Tick();
  const auto kitten = factory.Create();
  const auto wall = factory.Create();
  EXPECT_EQ(kitten->SetIndex(9), 9);
  wall->SetIndex(3);
  kitten->Update(4.0F, 5.0F, 0.0F, 2.5F, 2.5F, 1, 0);
  kitten->OnImpact(1.0F, wall.get());
  kitten->OnImpact(1.0F, nullptr);
  EXPECT_EQ(logic.GetRecord(9)->myTouches, (std::vector<int>{3, 0}));
  EXPECT_EQ(logic.GetRecord(9)->myPosition.y, 5.0F);

  EXPECT_EQ(kitten->SetIndex(8), 9);
  EXPECT_EQ(logic.GetRecord(9), nullptr);
  ASSERT_NE(logic.GetRecord(8), nullptr) << "the record follows the body";
  // clang-format off
  const struct { float spin, health; bool isTold; } cases[] = {
      {-9.0F, 9.0F, true}, {-9.0F, 8.0F, false}, {10.0F, -11.0F, false}, {10.1F, -99.0F, true}};
  // clang-format on
  for (const auto& c : cases) {
    kitten->myHealth = c.health;
    kitten->SetAngularVelocity(c.spin);
    kitten->OnDamaged();
    EXPECT_EQ(logic.GetRecord(8)->myLastHealth == c.health, c.isTold) << c.spin << ", " << c.health;
  }
}

TEST_F(BridgeTest, TheSpriteTableSkipsWhatIsNoEntryAndAnEmptySpriteIsNone) {
  std::ofstream("table.xml")
      << "<GfxFactory><Sprite handle=\"8\" sprite_file=\"kitten.xml\"></Sprite>"
         "<Sprite handle=\"8\" sprite_file=\"x\"></Sprite>"
         "<Sprite handle=\"9\"></Sprite><Sprite sprite_file=\"x\"></Sprite>"
         "<Picture handle=\"3\" sprite_file=\"x\"></Picture></GfxFactory>";
  CGfxFactory table;
  table.Load("table.xml", "GfxFactory");
  table.Load("missing.xml", "GfxFactory");
  EXPECT_EQ(table.GetFiles(), (std::map<int, std::string>{{8, "kitten.xml"}}));
  ASSERT_TRUE(vask::SaveXml(table, "copy.xml", "GfxFactory"));
  table.Load("copy.xml", "GfxFactory");
  EXPECT_EQ(table.GetFiles().at(8), "kitten.xml");

  std::ofstream("screen.xml") << "<Sprite type=\"sprite_screenlayer\"></Sprite>";
  std::ofstream("empty.xml") << "<Sprite type=\"sprite_base\"></Sprite>";
  for (const char* const file : {"", "missing.xml", "empty.xml", "screen.xml"}) {
    EXPECT_FALSE(table.LoadSprite(file)) << file;
  }
  EXPECT_NE(vask::CScreenLayer::PeekSingletonPtr(), nullptr);
}

}  // namespace
}  // namespace brumble
