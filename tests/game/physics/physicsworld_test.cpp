#include "game/physics/physicsworld.h"

#include "game/physics/arena.h"
#include "game/physics/contactsolver.h"
#include "game/physics/physicshandle.h"
#include "game/physics/worldstate.h"
#include "platform/random.h"
#include "platform/wallclock.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <new>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace {
int theAllocations = 0;
}

// Inlined into callers, they would look to the compiler like a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++theAllocations;
  return std::malloc(size);
}
// The sanitizer's own would not fit the operators below.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return operator new(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace brumble {

class CPhysicsWorldPeer {
 public:
  static std::vector<CPhysicsBody>& Bodies(CPhysicsWorld& world) { return world.myBodies; }
};

namespace {

// Numbers of its own, the same in every run.
struct CSequence : vask::platform::IRandomSource {
  void Seed(unsigned seed) override { lastSeed = seed; }
  int Next() override { return static_cast<int>((state = state * 69069U + 1U) >> 17U); }

  unsigned lastSeed = 0;
  unsigned state = 1;
};

using Log = std::vector<std::string>;

// Writes what it is told into the log, each line headed by the number it was born with.
class CLoggingBridge : public IPhysicsGfxBridge {
 public:
  CLoggingBridge(int number, Log& log) : myNumber(number), myLog(log) { myHealth = 3000.0F; }
  ~CLoggingBridge() override { Add("gone"); }

  void Update(float, float, float, float, float, int, int) override { Add("update"); }
  int SetIndex(int index) override {
    Add("index " + std::to_string(index));
    return index;
  }
  void OnImpact(float impulseSquared, IPhysicsGfxBridge* other) override {
    Add("hit by " + std::to_string(other->GetIndex()) + " with " +
        std::to_string(std::lround(std::sqrt(impulseSquared) * 100.0F)));
  }
  int GetIndex() const override { return myNumber; }
  void SetAngularVelocity(float) override { Add("spin"); }
  void OnDamaged() override { Add("damaged"); }

 private:
  void Add(const std::string& what) { myLog.push_back(std::to_string(myNumber) + " " + what); }

  int myNumber;
  Log& myLog;
};

// A world with the arena built, over replaced random numbers and a stopped clock, as if the process
// had just begun. What becomes of it goes into the log; a kitten in the oven brings a new one.
class CWorldTest : public testing::Test,
                   public IPhysicsGfxBridgeFactory,
                   public IGameLogicReceiver {
 protected:
  CWorldTest() {
    vask::platform::SetRandomSource(&myRandom);
    vask::platform::SetWallClock([] { return std::int64_t{1234567}; });
    WorldState() = {.receiver = this};
    myWorld->SetUp();
    myWorld->SetBridgeFactory(this);
  }
  ~CWorldTest() override {
    WorldState() = {};
    vask::platform::SetRandomSource(nullptr);
    vask::platform::SetWallClock(nullptr);
  }
  std::unique_ptr<IPhysicsGfxBridge> Create() override {
    return std::make_unique<CLoggingBridge>(myBorn++, myLog);
  }
  void OnDoorOpened() override { myLog.emplace_back("opened"); }
  void OnDoorClosed() override { myLog.emplace_back("closed"); }
  void OnKittenInHell(int index) override { myLog.push_back("hell " + std::to_string(index)); }
  void OnKittenInOven(int index) override {
    myLog.push_back("oven " + std::to_string(index));
    AddKitten(0.0F, -40.0F);
  }

  std::vector<CPhysicsBody>& Bodies() { return CPhysicsWorldPeer::Bodies(*myWorld); }
  // A kitten at rest.
  CPhysicsBody& AddKitten(float x, float y, float spin = 0.0F, float health = 3000.0F) {
    myWorld->AddKittenBody(x, y, 0.0F, 0.0F);
    CPhysicsBody& kitten = Bodies().back();
    kitten.angularVelocity = spin;
    if (kitten.bridge != nullptr) {
      kitten.bridge->myHealth = health;
    }
    return kitten;
  }

  CSequence myRandom;
  Log myLog;
  int myBorn = 0;
  std::unique_ptr<CPhysicsWorld> myWorld = std::make_unique<CPhysicsWorld>();
};

// Two kittens leave, two stay just inside. The last one, at first one that the callback has added,
// takes the free place and is still examined in the same walk. The door opens once, and whoever
// leaves next shuts it.
TEST_F(CWorldTest, AStepReportsInOrder) {
  AddKitten(-64.1F, 0.0F);
  AddKitten(0.0F, -40.0F, 10.0F, 0.0F);
  AddKitten(20.0F, 50.1F);
  AddKitten(20.0F, 50.0F, 10.0F, 0.0F);
  AddKitten(64.0F, -40.0F);
  Bodies().shrink_to_fit();  // the new one moves them all
  myWorld->Step(0.0F);
  // clang-format off
  EXPECT_EQ(myLog, (Log{
      "0 index 8", "0 update", "0 spin", "oven 8", "0 gone", "5 index 8", "5 update", "5 spin",
      "1 index 9", "1 update", "1 spin", "1 damaged", "opened",
      "2 index 10", "2 update", "2 spin", "hell 10", "closed", "2 gone", "4 index 10", "4 update", "4 spin",
      "3 index 11", "3 update", "3 spin", "3 damaged", "opened"}));
  // clang-format on
}

TEST_F(CWorldTest, SpinCostsHealthAndOpensTheDoor) {
  // clang-format off
  const struct { float spin, health, left; bool isOpened; } cases[] = {
      {5, 0, 0, false}, {-5, -1, -1, false}, {10, 3000, 2980, false}, {-10, 21, 1, false}, {10, 20, 0, true}};
  // clang-format on
  for (const auto& c : cases) {
    const CPhysicsBody& kitten = AddKitten(0.0F, -40.0F, c.spin, c.health);
    myWorld->Step(0.0F);
    EXPECT_EQ(kitten.bridge->myHealth, c.left);
    EXPECT_EQ(CPhysicsWorld::IsDoorOpen(), c.isOpened) << c.health;
    EXPECT_EQ(Bodies()[kDoorIndex].y, c.isOpened ? kDoorOpenY : kDoorShutY) << c.health;
    Bodies().resize(8);
  }
}

TEST_F(CWorldTest, AStepAllocatesNothing) {
  myWorld->SetBridgeFactory(nullptr);
  for (int k = 0; k < 60; ++k) {
    AddKitten(4.0F * static_cast<float>(k % 10) - 20.0F, 0.7F * static_cast<float>(k) - 20.0F);
  }
  const int before = theAllocations;
  for (int step = 0; step < 100; ++step) {
    myWorld->Step(0.015F);
  }
  EXPECT_TRUE(before > 0 && theAllocations == before);
}

struct CSolverTest : testing::Test {
  CSolverTest() {
    bodies[0].invMass = 1.0F;
    bodies[0].bridge = std::make_unique<CLoggingBridge>(0, log);
    bodies[1].bridge = std::make_unique<CLoggingBridge>(1, log);
  }
  void Touch(SVec2 point, SVec2 normal) {
    contacts->Append({&bodies[0], &bodies[1], point, point, normal, point});
  }

  Log log;
  std::vector<CPhysicsBody> bodies{2};
  std::unique_ptr<CContactBuffer> contacts = std::make_unique<CContactBuffer>();
};

// The second body gets less. The point of a spinning body may approach though its centre rests.
TEST_F(CSolverTest, WhatApproachesAtThePointIsThrownBack) {
  const SVec2 left = {-1.0F, 0.0F};
  // clang-format off
  const struct { float vxA, spinA, vxB, invMassB; SVec2 normal; float newA, newB; Log told; } cases[] = {
      {2, 0, -1, 1, left, -0.7F, 1.43F, {"0 hit by 1 with 270", "1 hit by 0 with 243"}},
      {1, 0, 0, 0, left, -0.8F, 0, {"0 hit by 1 with 180", "1 hit by 0 with 162"}},
      {0, -1, 0, 0, left, -1.8F, 0, {"0 hit by 1 with 180", "1 hit by 0 with 162"}},
      {-1, 0, 0, 0, left, -1, 0, {}}, {0, 0, 0, 0, left, 0, 0, {}}, {0, 1, 0, 0, left, 0, 0, {}},
      {1, 0, 0, 0, {0, 0}, 1, 0, {}}};
  // clang-format on
  for (const auto& c : cases) {
    std::tie(bodies[0].vx, bodies[0].angularVelocity) = std::pair(c.vxA, c.spinA);
    std::tie(bodies[1].vx, bodies[1].invMass) = std::pair(c.vxB, c.invMassB);
    log.clear();
    contacts->Clear();
    Touch({1, 1}, c.normal);
    ResolveContacts(*contacts);
    EXPECT_NEAR(bodies[0].vx, c.newA, 1.0e-5F);
    EXPECT_NEAR(bodies[1].vx, c.newB, 1.0e-5F);
    EXPECT_EQ(log, c.told) << c.vxA << " " << c.spinA;
  }
}

// Between two walls a body is thrown to and fro, at 0.8 of its speed each time. The third contact
// has no direction, but takes its visits.
TEST_F(CSolverTest, TwoHundredVisitsEndTheStep) {
  bodies[0].vx = 1.0F;
  for (const float side : {-1.0F, 1.0F, 0.0F}) {
    Touch({0, 0}, {side, 0});
  }
  ResolveContacts(*contacts);
  EXPECT_NEAR(bodies[0].vx / std::pow(0.8F, 134.0F), 1.0F, 1.0e-3F);
}

// The end of the scene, as every build must reach it. After a change that means to move bodies,
// the failing test prints the rows to put here, and the hash.
constexpr std::uint64_t kHash = 0xE4E874A7D5B59DFB;
constexpr const char* kReference =
#include "game/physics/determinism_reference.inc"
    ;

// A player sweeps through the pit, ever at another height, under a rain of kittens. Integers only,
// so that the script itself has no rounding.
TEST_F(CWorldTest, ASceneEndsInTheSameBitsInEveryBuild) {
  WorldState() = {};
  CPhysicsHandle handle;
  handle.GetWorld()->SetBridgeFactory(this);
  handle.ResetWorld();
  EXPECT_EQ(myRandom.lastSeed, 1234567U) << "the wall clock's";
  for (int step = 0; step < 2000; ++step) {
    if (step % 20 == 0) {
      handle.SpawnKitten();
    }
    const int sweep = step * 23 % 1600;
    handle.SetMousePosition(sweep < 800 ? sweep : 1600 - sweep, 300 + step * 7 % 250);
    handle.Step(15);
  }
  std::uint64_t hash = 0xCBF29CE484222325U;  // FNV-1a, byte by byte from the lowest
  const auto mix = [&hash](std::uint32_t value) {
    for (int byte = 0; byte < 4; ++byte) {
      hash = (hash ^ ((value >> (8 * byte)) & 0xFFU)) * 0x100000001B3U;
    }
  };
  std::istringstream reference(kReference);
  std::ostringstream rows;
  std::string difference;  // the first body and field that are not as they should be
  std::uint32_t index = 0;
  for (const CPhysicsBody& b : handle.GetWorld()->GetBodies()) {
    const auto bits = [](auto value) { return std::bit_cast<std::uint32_t>(value); };
    // clang-format off
    const std::pair<const char*, std::uint32_t> fields[] = {
        {"shape", bits(b.shape)}, {"halfWidth", bits(b.halfWidth)}, {"halfHeight", bits(b.halfHeight)},
        {"x", bits(b.x)}, {"y", bits(b.y)}, {"angle", bits(b.angle)}, {"vx", bits(b.vx)}, {"vy", bits(b.vy)},
        {"angularVelocity", bits(b.angularVelocity)}, {"invMass", bits(b.invMass)},
        {"invInertia", bits(b.invInertia)}, {"kind", bits(b.kind)}, {"look", bits(b.look)},
        {"bridge's myHealth", bits(b.bridge->myHealth)}};
    // clang-format on
    for (const auto& [name, field] : fields) {
      std::uint32_t expected = 0;
      reference >> std::hex >> expected;
      if (difference.empty() && field != expected) {
        difference = "body " + std::to_string(index) + ", " + name;
      }
      mix(field);
      rows << std::hex << field << " ";
    }
    rows << "\n";
    ++index;
  }
  mix(index);
  EXPECT_EQ(difference, "");
  EXPECT_EQ(hash, kHash) << std::hex << hash << "\n" << rows.str();
}

}  // namespace
}  // namespace brumble
