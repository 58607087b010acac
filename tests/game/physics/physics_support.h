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
    if (myNext < myScript.size()) {
      return myScript[myNext++];
    }
    myState = myState * 69069U + 1U;
    return static_cast<int>(myState >> 17U);
  }

  std::vector<int> myScript;
  std::size_t myNext = 0;
  unsigned mySeed = 0;

 private:
  std::uint32_t myState = 1;
};

using EventLog = std::vector<std::string>;

// Writes what it is told into the log, each line headed by the number it was born with.
class CLoggingBridge : public IPhysicsGfxBridge {
 public:
  CLoggingBridge(int number, EventLog& log) : myNumber(number), myLog(log) { myHealth = 3000.0F; }
  ~CLoggingBridge() override { Log("gone"); }

  void Update(float, float, float, float, float, std::int32_t, std::int32_t) override {
    Log("update");
  }
  int SetIndex(int index) override {
    Log("index " + std::to_string(index));
    return std::exchange(myIndex, index);
  }
  void OnImpact(float impulseSquared, IPhysicsGfxBridge* other) override {
    myImpulsesSquared.push_back(impulseSquared);
    myOther = other;
    if (myBody != nullptr) {
      mySpeedAtImpact = myBody->vx;
    }
  }
  int GetIndex() const override { return myIndex; }
  void SetAngularVelocity(float) override { Log("spin"); }
  void OnDamaged() override { Log("damaged"); }

  std::vector<float> myImpulsesSquared;
  IPhysicsGfxBridge* myOther = nullptr;
  const CPhysicsBody* myBody = nullptr;  // whose speed to note at an impact
  float mySpeedAtImpact = 0.0F;

 private:
  void Log(const std::string& what) { myLog.push_back(std::to_string(myNumber) + " " + what); }

  int myNumber;
  int myIndex = -1;
  EventLog& myLog;
};

class CLoggingFactory : public IPhysicsGfxBridgeFactory {
 public:
  explicit CLoggingFactory(EventLog& log) : myLog(log) {}
  std::unique_ptr<IPhysicsGfxBridge> Create() override {
    return std::make_unique<CLoggingBridge>(myBorn++, myLog);
  }

 private:
  int myBorn = 0;
  EventLog& myLog;
};

// A world with the arena built, over replaced random numbers and a stopped clock, as if the process
// had just begun.
class CWorldTest : public testing::Test {
 protected:
  CWorldTest() {
    WorldState() = {};
    vask::platform::SetRandomSource(&myRandom);
    vask::platform::SetWallClock([] { return std::int64_t{1234567}; });
    myWorld = std::make_unique<CPhysicsWorld>();
    myWorld->SetUp();
  }
  ~CWorldTest() override {
    WorldState() = {};
    vask::platform::SetRandomSource(nullptr);
    vask::platform::SetWallClock(nullptr);
  }

  CPhysicsBody& Body(std::size_t index) { return CPhysicsWorldPeer::Bodies(*myWorld)[index]; }
  // A kitten at rest; answers its index.
  std::size_t AddKitten(float x, float y) {
    myWorld->AddKittenBody(x, y, 0.0F, 0.0F);
    return static_cast<std::size_t>(myWorld->GetBodyCount()) - 1;
  }

  CScriptedRandom myRandom;
  std::unique_ptr<CPhysicsWorld> myWorld;
};

}  // namespace brumble
