#include "game/physics/physicsworld.h"

#include <cmath>
#include <functional>

#include "game/physics/arena.h"
#include "game/physics/physics_support.h"

namespace brumble {
namespace {

using Log = CLoggingBridge::Log;

class CReportTest : public CWorldTest, public IGameLogicReceiver {
 protected:
  CReportTest() {
    CPhysicsWorld::SetGameLogicReceiver(this);
    myWorld->SetBridgeFactory(this);
  }
  ~CReportTest() override { myWorld.reset(); }
  void OnDoorOpened() override { myLog.emplace_back("opened"); }
  void OnDoorClosed() override { myLog.emplace_back("closed"); }
  void OnKittenInOven(int index) override {
    myLog.push_back("oven " + std::to_string(index));
    if (myOnOven) {
      myOnOven();
    }
  }
  void OnKittenInHell(int index) override { myLog.push_back("hell " + std::to_string(index)); }

  Log Report() {
    myLog.clear();
    myWorld->Step(0.0F);
    return myLog;
  }

  std::function<void()> myOnOven;
};

TEST_F(CReportTest, SetUpResetsKittensInPlace) {
  Body(AddKitten(20.0F, 20.0F)).look = 2;
  Body(8).vx = Body(8).vy = Body(8).angularVelocity = 3.0F;
  WorldState().resetCounter = 0;
  WorldState().isDoorOpen = true;
  Body(kDoorIndex).y = kDoorOpenY;
  myRandom.myScript = {0, 0, 0, 0, 0, 0, 0, 0, 16384, 32767};
  myWorld->SetUp();
  EXPECT_EQ(myRandom.mySeed, 1234567U);
  EXPECT_EQ(myRandom.myNext, 10U);
  ASSERT_EQ(myWorld->GetBodyCount(), 9);
  const CPhysicsBody& kitten = Body(8);
  EXPECT_TRUE(kitten.shape == kCircle && kitten.halfWidth == 2.2F && kitten.look == 0);
  EXPECT_TRUE(kitten.x == -46.0F && kitten.y == -7.8F) << "2, -4, -10 and on by -6";
  EXPECT_FLOAT_EQ(1.0F / kitten.invMass, 3.1F + 0.10000014F * 16384.0F / 32767.0F);
  EXPECT_FLOAT_EQ(kitten.invMass / kitten.invInertia, 0.5F * 2.2F * 2.2F);
  EXPECT_TRUE(kitten.vx == 0.0F && kitten.vy == 0.0F && kitten.angularVelocity == 0.0F);
  EXPECT_EQ(myBorn, 10) << "one bridge for the kitten, nine by the reset";
  EXPECT_FLOAT_EQ(Body(kMonsterIndex).invMass, 1.0F / 3.0F) << "drawn last";
  EXPECT_FLOAT_EQ(Body(kMonsterIndex).invInertia, 1.0F / 37.5F);
  EXPECT_EQ(Body(1).invMass, 0.0F);
  EXPECT_TRUE(Body(kDoorIndex).y == -25.0F && CPhysicsWorld::IsDoorOpen());
}

TEST_F(CWorldTest, SpawnDrawsPlaceThenMassThenAngle) {
  myRandom.myScript = {32767, 0, 16384, 0, 32767, 0, 0, 0, 0, 0, 0, 0};
  for (int k = 0; k < 4; ++k) {
    EXPECT_EQ(myWorld->SpawnKitten(), 8 + k);
    EXPECT_EQ(Body(8 + static_cast<std::size_t>(k)).look, k % 3);
  }
  const CPhysicsBody& first = Body(8);
  EXPECT_TRUE(first.x == 50.0F && first.y == -50.0F && first.invMass == 1.0F);
  EXPECT_FLOAT_EQ(first.invInertia, 1.0F / (50.0F / 12.0F));
  EXPECT_FLOAT_EQ(first.angle, 6.282F * 16384.0F / 32767.0F);
  EXPECT_EQ(Body(9).x, -50.0F);
  EXPECT_FLOAT_EQ(Body(9).invMass, 1.0F / 3.0F);
}

TEST_F(CWorldTest, ALongStepIsCutShort) {
  AddKitten(0.0F, -40.0F);
  myWorld->Step(0.2F);
  EXPECT_FLOAT_EQ(Body(8).y, -40.0F + 9.83F * 0.05F * 0.999F * 0.05F);
}

// Without a bridge too a kitten leaves, and the game hears of it.
TEST_F(CReportTest, KittensLeaveBeyondTheEdges) {
  // clang-format off
  const struct { float x, y; const char* expected; } cases[] = {
      {-64.5F, 0, "oven 8"}, {64.5F, 0, "oven 8"}, {-64, 0, ""},  {64, 0, ""},
      {0, 50.1F, "hell 8"},  {0, 50, ""},          {0, -500, ""}, {-64.5F, 99, "oven 8"}};
  // clang-format on
  myWorld->SetBridgeFactory(nullptr);
  for (const auto& c : cases) {
    AddKitten(c.x, c.y);
    const Log log = Report();
    EXPECT_EQ(log, *c.expected != '\0' ? Log{c.expected} : Log{}) << c.x << " " << c.y;
    EXPECT_EQ(myWorld->GetBodyCount(), log.empty() ? 9 : 8);
    CPhysicsWorldPeer::Bodies(*myWorld).resize(8);
  }
  Body(kMonsterIndex).y = 60.0F;
  EXPECT_EQ(Report(), Log{});
}

// The last kitten takes the free place and is still examined in the same walk.
TEST_F(CReportTest, RemovalMovesTheLastKittenIn) {
  AddKitten(-70.0F, 0.0F);
  AddKitten(0.0F, -40.0F);
  AddKitten(20.0F, 60.0F);
  AddKitten(20.0F, -40.0F);
  EXPECT_EQ(Report(), (Log{"0 index 8", "0 update", "0 spin", "oven 8", "0 gone",  //
                           "3 index 8", "3 update", "3 spin",                      //
                           "1 index 9", "1 update", "1 spin",                      //
                           "2 index 10", "2 update", "2 spin", "hell 10", "2 gone"}));
  EXPECT_EQ(myWorld->GetBodyCount(), 10);
}

TEST_F(CReportTest, SpinCostsHealthAndOpensTheDoor) {
  // clang-format off
  const struct { float health, spin, expectedHealth; bool isOpened; } cases[] = {
      {0, 5, 0, false},     {-1, -5, -1, false}, {3000, 10, 2980, false}, {3000, -10, 2980, false},
      {20, 10, 0, true},    {21, 10, 1, false}};
  // clang-format on
  const std::size_t kitten = AddKitten(0.0F, -40.0F);
  for (const auto& c : cases) {
    WorldState().isDoorOpen = false;
    Body(kDoorIndex).y = kDoorShutY;
    Body(kitten).angularVelocity = c.spin;
    Body(kitten).bridge->myHealth = c.health;
    Log expected{"0 index 8", "0 update", "0 spin", "0 damaged", "opened"};
    expected.resize(c.isOpened ? 5 : c.expectedHealth != c.health ? 4 : 3);
    EXPECT_EQ(Report(), expected) << c.health;
    EXPECT_EQ(Body(kitten).bridge->myHealth, c.expectedHealth);
    EXPECT_EQ(CPhysicsWorld::IsDoorOpen(), c.isOpened) << c.health;
    EXPECT_EQ(Body(kDoorIndex).y, c.isOpened ? -45.0F : -25.0F) << c.health;
  }
}

// Opened once, shut by whoever leaves next; the bridge outlives both callbacks.
TEST_F(CReportTest, TheDoorShutsWhenAKittenLeaves) {
  for (const std::size_t kitten : {AddKitten(0.0F, 50.0F), AddKitten(0.0F, -40.0F)}) {
    Body(kitten).angularVelocity = 10.0F;
    Body(kitten).bridge->myHealth = 0.0F;
  }
  EXPECT_EQ(Report(), (Log{"0 index 8", "0 update", "0 spin", "0 damaged", "opened", "1 index 9",
                           "1 update", "1 spin", "1 damaged"}));
  Body(8).y = 60.0F;
  Body(9).angularVelocity = 0.0F;
  EXPECT_EQ(Report(), (Log{"0 index 8", "0 update", "0 spin", "0 damaged", "hell 8", "closed",
                           "0 gone", "1 index 8", "1 update", "1 spin"}));
  EXPECT_TRUE(Body(kDoorIndex).y == -25.0F && !CPhysicsWorld::IsDoorOpen());
}

TEST_F(CReportTest, ACallbackMayAddKittens) {
  myOnOven = [this] {
    for (int k = 0; k < 100; ++k) {
      AddKitten(0.0F, -40.0F);
    }
  };
  AddKitten(-70.0F, 0.0F);
  AddKitten(30.0F, -40.0F);
  Report();
  EXPECT_EQ(myWorld->GetBodyCount(), 8 + 1 + 100);
  for (std::size_t i = 8; i < myWorld->GetBodies().size(); ++i) {
    EXPECT_EQ(Body(i).bridge->GetIndex(), static_cast<int>(i));
  }
}

TEST_F(CWorldTest, AStepAllocatesNothing) {
  for (int k = 0; k < 60; ++k) {
    AddKitten(4.0F * static_cast<float>(k % 10) - 20.0F, 0.7F * static_cast<float>(k) - 20.0F);
  }
  const int before = AllocationCount();
  for (int step = 0; step < 100; ++step) {
    myWorld->Step(0.015F);
  }
  EXPECT_EQ(AllocationCount(), before);
}

TEST_F(CWorldTest, TheMonsterTendsToItsSpeedLimit) {
  const float slow = 75.0F * (1.0F - std::exp(-0.04F));
  const std::pair<CVec2, CVec2> cases[] = {{{0.02F, -0.02F}, {0.4F, -0.4F}},
                                           {{0.05F, 0.0F}, {1.0F, 0.0F}},  // still free
                                           {{-0.05F, 0.0F}, {-slow, 0.0F}},
                                           {{0.0F, 500.0F}, {0.0F, 75.0F}}};
  for (const auto& [target, expected] : cases) {
    myWorld->SetPlayerTarget(target.x, target.y, 0.05F);
    EXPECT_NEAR(Body(kMonsterIndex).vx, expected.x, 1.0e-4F) << target.x;
    EXPECT_NEAR(Body(kMonsterIndex).vy, expected.y, 1.0e-4F) << target.y;
  }
}

}  // namespace
}  // namespace brumble
