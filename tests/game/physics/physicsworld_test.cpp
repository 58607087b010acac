#include "game/physics/physicsworld.h"

#include "game/physics/arena.h"
#include "game/physics/contactsolver.h"
#include "game/physics/worldstate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace brumble {
namespace {

// Writes what it is told into the log, each entry headed by the number it was born with.
struct CLoggingBridge : IPhysicsGfxBridge {
  CLoggingBridge(int n, std::string& l) : number(n), log(l) { myHealth = 3000.0F; }
  ~CLoggingBridge() override { Add("gone"); }
  void Update(float, float, float, float, float, int, int) override { Add("update"); }
  int SetIndex(int index) override {
    Add("index " + std::to_string(index));
    return index;
  }
  void OnImpact(float, IPhysicsGfxBridge*) override { Add("hit"); }
  int GetIndex() const override { return number; }
  void SetAngularVelocity(float) override { Add("spin"); }
  void OnDamaged() override { Add("damaged"); }
  void Add(const std::string& what) { log += std::to_string(number) + " " + what + "; "; }

  int number;
  std::string& log;
};

// A world with the arena built, as if the process had just begun. What becomes of it goes into the
// log; a kitten in the oven brings a new one.
class CWorldTest : public testing::Test,
                   public IPhysicsGfxBridgeFactory,
                   public IGameLogicReceiver {
 protected:
  CWorldTest() {
    WorldState() = {.receiver = this};
    myWorld->SetUp();
    myWorld->SetBridgeFactory(this);
  }
  ~CWorldTest() override { WorldState() = {}; }
  std::unique_ptr<IPhysicsGfxBridge> Create() override {
    return std::make_unique<CLoggingBridge>(myBorn++, myLog);
  }
  void OnDoorOpened() override { myLog += "opened; "; }
  void OnDoorClosed() override { myLog += "closed; "; }
  void OnKittenInHell(int index) override { myLog += "hell " + std::to_string(index) + "; "; }
  void OnKittenInOven(int index) override {
    myLog += "oven " + std::to_string(index) + "; ";
    AddKitten(0.0F, -40.0F);
  }

  std::vector<CPhysicsBody>& Bodies() {
    return const_cast<std::vector<CPhysicsBody>&>(myWorld->GetBodies());
  }
  // A kitten at rest.
  CPhysicsBody& AddKitten(float x, float y, float spin = 0.0F, float health = 3000.0F) {
    myWorld->AddKittenBody(x, y, 0.0F, 0.0F);
    CPhysicsBody& kitten = Bodies().back();
    kitten.angularVelocity = spin;
    kitten.bridge->myHealth = health;
    return kitten;
  }

  std::string myLog;
  int myBorn = 0;
  std::unique_ptr<CPhysicsWorld> myWorld = std::make_unique<CPhysicsWorld>();
};

// Two kittens leave, two stay just inside. The last one, at first one that the callback has added,
// takes the free place and is still examined in the same walk. The door opens once, and whoever
// leaves next shuts it.
TEST_F(CWorldTest, AStepReportsInOrder) {
  AddKitten(-64.1F, 0.0F);
  AddKitten(0.0F, -40.0F, 10.0F, 0.0F);
  AddKitten(-20.0F, 50.1F);
  AddKitten(20.0F, 50.0F, 10.0F, 0.0F);
  AddKitten(64.0F, -40.0F);
  Bodies().shrink_to_fit();  // the new one moves them all
  myWorld->Step(0.0F);
  EXPECT_EQ(myLog,
            "0 index 8; 0 update; 0 spin; oven 8; 0 gone; 5 index 8; 5 update; 5 spin; "
            "1 index 9; 1 update; 1 spin; 1 damaged; opened; "
            "2 index 10; 2 update; 2 spin; hell 10; closed; 2 gone; "
            "4 index 10; 4 update; 4 spin; 3 index 11; 3 update; 3 spin; 3 damaged; opened; ");
  EXPECT_EQ(Bodies()[kDoorIndex].y, kDoorOpenY);
}

// A kitten, which is a turned box, becomes a disc that lies beside the arena; the door keeps its
// flag.
TEST_F(CWorldTest, SetUpResetsKittensAndLeavesTheDoorFlag) {
  CPhysicsBody& body = AddKitten(20.0F, -40.0F, 10.0F, 0.0F);
  myWorld->Step(0.0F);
  body.vx = 1.0F;
  body.vy = 1.0F;
  body.kind = kStatic;
  body.look = 2;
  myWorld->SetUp();
  EXPECT_TRUE(CPhysicsWorld::IsDoorOpen());
  EXPECT_EQ(Bodies()[kDoorIndex].y, kDoorShutY);
  EXPECT_EQ(body.shape, kCircle);
  EXPECT_EQ(body.kind, kDynamic);
  EXPECT_EQ(body.look, 0);
  EXPECT_EQ(std::pair(body.halfWidth, body.halfHeight), std::pair(2.2F, 2.2F));
  EXPECT_EQ(std::pair(body.x, body.y), std::pair(-94.0F, -7.8F));
  EXPECT_EQ(std::pair(body.vx, body.vy), std::pair(0.0F, 0.0F));
  EXPECT_EQ(std::pair(body.angle, body.angularVelocity), std::pair(0.0F, 0.0F));
  EXPECT_NEAR(1.0F / body.invMass, 3.15F, 0.05F);
  EXPECT_FLOAT_EQ(body.invInertia, body.invMass / (0.5F * 2.2F * 2.2F));
  EXPECT_EQ(body.bridge->GetIndex(), myBorn - 1) << "the bridge is a new one";
}

TEST_F(CWorldTest, ASpawnedKittenFalls) {
  auto world = std::make_unique<CPhysicsWorld>();
  world->SetUp();
  const int kitten = world->SpawnKitten();
  world->SetPlayerTarget(10.0F, -5.0F, 0.05F);
  world->Step(0.015F);
  EXPECT_EQ(kitten, kFirstKittenIndex);
  EXPECT_FLOAT_EQ(world->GetBodies().back().vy, 9.83F * 0.015F * 0.999F);
}

TEST_F(CWorldTest, ALongStepIsHeldToATwentiethOfASecond) {
  const CPhysicsBody& kitten = AddKitten(0.0F, 0.0F);
  myWorld->Step(9.0F);
  EXPECT_FLOAT_EQ(kitten.y, 0.05F * (9.83F * 0.05F * 0.999F));
}

TEST_F(CWorldTest, OnlyKittensGetAVelocity) {
  const CPhysicsBody& kitten = AddKitten(0.0F, 0.0F);
  for (const int index : {kMonsterIndex, kFirstKittenIndex, kFirstKittenIndex + 1}) {
    myWorld->SetKittenVelocity(index, {5.0F, 6.0F});
  }
  EXPECT_EQ(Bodies()[kMonsterIndex].vx, 0.0F);
  EXPECT_EQ(std::pair(kitten.vx, kitten.vy), std::pair(5.0F, 6.0F));
}

// Between two walls a body is thrown back and forth, at 0.8 of its speed each time.
TEST(ContactSolver, EndsAStepAfterTwoHundredVisits) {
  std::vector<CPhysicsBody> bodies(2);
  bodies[0].invMass = 1.0F;
  bodies[0].vx = 1.0F;
  const auto contacts = std::make_unique<CContactBuffer>();
  for (const float side : {-1.0F, 1.0F}) {
    contacts->Append({&bodies[0], &bodies[1], {}, {}, {side, 0.0F}, {}});
  }
  ResolveContacts(*contacts);
  EXPECT_NEAR(bodies[0].vx / std::pow(0.8F, 200.0F), 1.0F, 1.0e-3F);
}

}  // namespace
}  // namespace brumble
