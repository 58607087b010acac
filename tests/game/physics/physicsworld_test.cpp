#include "game/physics/physicsworld.h"

#include <cstdlib>
#include <new>

#include "game/physics/arena.h"
#include "game/physics/physics_support.h"

namespace {
int theAllocations = 0;
}

// Inlined into callers, they would look to the compiler like a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++theAllocations;
  return std::malloc(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace brumble {
namespace {

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
    for (int k = 0; k < myKittensPerOven; ++k) {
      AddKitten(0.0F, -40.0F);
    }
  }
  void OnKittenInHell(int index) override { myLog.push_back("hell " + std::to_string(index)); }

  Log Report() {
    myLog.clear();
    myWorld->Step(0.0F);
    return myLog;
  }

  int myKittensPerOven = 0;
};

TEST_F(CReportTest, SetUpResetsKittensInPlace) {
  CPhysicsBody& kitten = AddKitten(20.0F, 20.0F, 3.0F);
  kitten.vx = kitten.vy = 3.0F;
  WorldState() = {.isDoorOpen = true};
  myWorld->SetUp();
  EXPECT_EQ(myRandom.mySeed, 1234567U);
  ASSERT_EQ(myWorld->GetBodyCount(), 9);
  EXPECT_TRUE(kitten.shape == kCircle && kitten.x == -46.0F && kitten.y == -7.8F);
  EXPECT_TRUE(kitten.vx == 0.0F && kitten.vy == 0.0F && kitten.angularVelocity == 0.0F);
  EXPECT_EQ(myBorn, 10) << "one bridge for the kitten, nine by the reset";
  EXPECT_TRUE(Body(kDoorIndex).y == kDoorShutY && CPhysicsWorld::IsDoorOpen());
}

// Without a bridge too a kitten leaves, and the game hears of it.
TEST_F(CReportTest, KittensLeaveBeyondTheEdges) {
  // clang-format off
  const struct { float x, y; Log expected; } cases[] = {
      {-64.5F, 0, {"oven 8"}}, {64.5F, 0, {"oven 8"}}, {-64, 0, {}}, {64, 0, {}}, {0, 50, {}},
      {0, 50.1F, {"hell 8"}}, {-64.5F, 99, {"oven 8"}}, {0, -500, {}}};
  // clang-format on
  myWorld->SetBridgeFactory(nullptr);
  for (const auto& c : cases) {
    AddKitten(c.x, c.y);
    EXPECT_EQ(Report(), c.expected) << c.x << " " << c.y;
    EXPECT_EQ(myWorld->GetBodyCount(), c.expected.empty() ? 9 : 8);
    CPhysicsWorldPeer::Bodies(*myWorld).resize(8);
  }
}

// The last kitten takes a free place and is still examined in the same walk. The door opens once,
// and whoever leaves next shuts it.
TEST_F(CReportTest, AStepReportsInOrder) {
  AddKitten(-70.0F, 0.0F);
  AddKitten(0.0F, -40.0F, 10.0F, 0.0F);
  AddKitten(20.0F, 60.0F);
  AddKitten(20.0F, -40.0F, 10.0F, 0.0F);
  EXPECT_EQ(Report(), (Log{"0 index 8", "0 update", "0 spin", "oven 8", "0 gone",  //
                           "3 index 8", "3 update", "3 spin", "3 damaged", "opened",
                           "1 index 9", "1 update", "1 spin", "1 damaged",  //
                           "2 index 10", "2 update", "2 spin", "hell 10", "closed", "2 gone"}));
  EXPECT_TRUE(Body(kDoorIndex).y == kDoorShutY && !CPhysicsWorld::IsDoorOpen());
}

TEST_F(CReportTest, SpinCostsHealthAndOpensTheDoor) {
  // clang-format off
  const struct { float spin, health, left; bool isOpened; } cases[] = {
      {5, 0, 0, false}, {-5, -1, -1, false}, {10, 3000, 2980, false}, {-10, 21, 1, false}, {10, 20, 0, true}};
  // clang-format on
  for (const auto& c : cases) {
    const CPhysicsBody& kitten = AddKitten(0.0F, -40.0F, c.spin, c.health);
    Report();
    EXPECT_EQ(kitten.bridge->myHealth, c.left);
    EXPECT_EQ(myLog.back() == "opened", c.isOpened);
    EXPECT_EQ(CPhysicsWorld::IsDoorOpen(), c.isOpened) << c.health;
    EXPECT_EQ(Body(kDoorIndex).y, c.isOpened ? kDoorOpenY : kDoorShutY) << c.health;
    CPhysicsWorldPeer::Bodies(*myWorld).resize(8);
  }
}

TEST_F(CReportTest, ACallbackMayAddKittens) {
  myKittensPerOven = 100;
  AddKitten(-70.0F, 0.0F);
  Report();
  EXPECT_EQ(myWorld->GetBodyCount(), 8 + 100);
  EXPECT_EQ(std::count(myLog.begin(), myLog.end(), "1 index 107") +
                std::count(myLog.begin(), myLog.end(), "100 index 8"),
            1);
}

TEST_F(CWorldTest, AStepAllocatesNothing) {
  for (int k = 0; k < 60; ++k) {
    AddKitten(4.0F * static_cast<float>(k % 10) - 20.0F, 0.7F * static_cast<float>(k) - 20.0F);
  }
  const int before = theAllocations;
  for (int step = 0; step < 100; ++step) {
    myWorld->Step(0.015F);
  }
  EXPECT_EQ(theAllocations, before);
}

}  // namespace
}  // namespace brumble
