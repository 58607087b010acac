#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "game/physics/physicsworld.h"
#include "game/physics/worldstate.h"
#include "platform/random.h"
#include "platform/wallclock.h"

namespace brumble {

class CPhysicsWorldPeer {
 public:
  static std::vector<CPhysicsBody>& Bodies(CPhysicsWorld& world) { return world.myBodies; }
};

// Answers an arithmetic sequence of its own.
class CSequence : public vask::platform::IRandomSource {
 public:
  void Seed(unsigned seed) override { mySeed = seed; }
  int Next() override { return static_cast<int>((myState = myState * 69069U + 1U) >> 17U); }

  unsigned mySeed = 0;

 private:
  unsigned myState = 1;
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

  CPhysicsBody& Body(int index) {
    return CPhysicsWorldPeer::Bodies(*myWorld).at(static_cast<std::size_t>(index));
  }
  // A kitten at rest.
  CPhysicsBody& AddKitten(float x, float y, float spin = 0.0F, float health = 3000.0F) {
    myWorld->AddKittenBody(x, y, 0.0F, 0.0F);
    CPhysicsBody& kitten = CPhysicsWorldPeer::Bodies(*myWorld).back();
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

}  // namespace brumble
