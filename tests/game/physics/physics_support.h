#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "game/physics/physicsworld.h"
#include "game/physics/worldstate.h"
#include "platform/random.h"
#include "platform/wallclock.h"

namespace brumble {

// Calls of operator new so far, in the whole test program.
int AllocationCount();

class CPhysicsWorldPeer {
 public:
  static std::vector<CPhysicsBody>& Bodies(CPhysicsWorld& world) { return world.myBodies; }
};

// Answers the numbers of the script, then an arithmetic sequence of its own.
class CScriptedRandom : public vask::platform::IRandomSource {
 public:
  void Seed(unsigned seed) override { mySeed = seed; }
  int Next() override {
    return myNext < myScript.size() ? myScript[myNext++]
                                    : static_cast<int>((myState = myState * 69069U + 1U) >> 17U);
  }

  std::vector<int> myScript;
  std::size_t myNext = 0;
  unsigned mySeed = 0;

 private:
  std::uint32_t myState = 1;
};

// Writes what it is told into the log, each line headed by the number it was born with.
class CLoggingBridge : public IPhysicsGfxBridge {
 public:
  using Log = std::vector<std::string>;
  CLoggingBridge(int number, Log& log) : myNumber(number), myLog(log) { myHealth = 3000.0F; }
  ~CLoggingBridge() override { Add("gone"); }

  void Update(float, float, float, float, float, std::int32_t, std::int32_t) override {
    Add("update");
  }
  int SetIndex(int index) override {
    Add("index " + std::to_string(index));
    return std::exchange(myIndex, index);
  }
  void OnImpact(float impulseSquared, IPhysicsGfxBridge* other) override {
    myImpacts.push_back({impulseSquared, other, myBody != nullptr ? myBody->vx : 0.0F});
  }
  int GetIndex() const override { return myIndex; }
  void SetAngularVelocity(float) override { Add("spin"); }
  void OnDamaged() override { Add("damaged"); }

  struct CImpact {
    float impulseSquared;
    IPhysicsGfxBridge* other;
    float vx;  // of `myBody` at that moment
  };
  std::vector<CImpact> myImpacts;
  const CPhysicsBody* myBody = nullptr;

 private:
  void Add(const std::string& what) { myLog.push_back(std::to_string(myNumber) + " " + what); }

  int myNumber;
  int myIndex = -1;
  Log& myLog;
};

// A world with the arena built, over replaced random numbers and a stopped clock, as if the process
// had just begun.
class CWorldTest : public testing::Test, public IPhysicsGfxBridgeFactory {
 protected:
  CWorldTest() {
    WorldState() = {};
    vask::platform::SetRandomSource(&myRandom);
    vask::platform::SetWallClock([] { return std::int64_t{1234567}; });
    myWorld->SetUp();
  }
  ~CWorldTest() override {
    WorldState() = {};
    vask::platform::SetRandomSource(nullptr);
    vask::platform::SetWallClock(nullptr);
  }
  std::unique_ptr<IPhysicsGfxBridge> Create() override {
    return std::make_unique<CLoggingBridge>(myBorn++, myLog);
  }

  CPhysicsBody& Body(std::size_t index) { return CPhysicsWorldPeer::Bodies(*myWorld)[index]; }
  // A kitten at rest; answers its index.
  std::size_t AddKitten(float x, float y) {
    myWorld->AddKittenBody(x, y, 0.0F, 0.0F);
    return static_cast<std::size_t>(myWorld->GetBodyCount()) - 1;
  }

  CScriptedRandom myRandom;
  CLoggingBridge::Log myLog;
  int myBorn = 0;
  std::unique_ptr<CPhysicsWorld> myWorld = std::make_unique<CPhysicsWorld>();
};

}  // namespace brumble
