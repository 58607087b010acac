#pragma once

#include "game/physics/contact.h"
#include "game/physics/contactgenerator.h"
#include "game/physics/gamelogicreceiver.h"
#include "game/physics/physicsbody.h"
#include "game/physics/physicsgfxbridge.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace brumble {

// The arena: walls, oven door, the monster that the mouse drives, and the kittens, advanced in
// small steps. Each step moves the bodies, resolves their contacts, reports every body to its
// bridge, and every kitten that leaves to the game logic. Holds about a megabyte of contacts by
// value, so it belongs on the heap.
//
//     auto world = std::make_unique<CPhysicsWorld>();
//     world->SetUp();
//     const int kitten = world->SpawnKitten();
//     world->SetPlayerTarget(10.0F, -5.0F, 0.05F);
//     world->Step(0.015F);
class CPhysicsWorld {
 public:
  // Starts with eight zeroed bodies; SetUp makes the arena of them.
  CPhysicsWorld();
  CPhysicsWorld(const CPhysicsWorld&) = delete;
  CPhysicsWorld& operator=(const CPhysicsWorld&) = delete;

  // Not owned; null for bodies without bridges. Existing bodies keep their bridges.
  void SetBridgeFactory(IPhysicsGfxBridgeFactory* factory) { myBridgeFactory = factory; }
  // Seeds the random numbers from the clock, resets every body and builds the arena. Kittens are
  // reset, not removed, and the door-open flag stays as it is.
  void SetUp();
  // The same with a given seed.
  void SetUp(unsigned seed);
  // Puts that many zeroed bodies, at least eight, in the place of what was there.
  void Clear(int count);
  // Advances by `dt` seconds, at most 0.05. Allocates nothing. OnImpact must not add bodies; the
  // other callbacks may.
  void Step(float dt);
  void AddKittenBody(float x, float y, float vx, float vy);
  // Adds a kitten at rest at a random place at the top; returns its index.
  int SpawnKitten();
  // Does nothing for an index that is no kitten's. The spin stays as it is.
  void SetKittenVelocity(int index, SVec2 velocity);
  // Sets the monster's velocity so that it reaches the world point in `t` seconds; when that is far
  // away, later, because the speed tends to a limit.
  void SetPlayerTarget(float x, float y, float t);
  int GetBodyCount() const { return static_cast<int>(myBodies.size()); }

  const std::vector<CPhysicsBody>& GetBodies() const { return myBodies; }

  // One receiver for the process; not owned, null for none.
  static void SetGameLogicReceiver(IGameLogicReceiver* receiver);
  static IGameLogicReceiver* GetGameLogicReceiver();
  // Process-wide, false at the start of the program, changed by Step only.
  static bool IsDoorOpen();

 private:
  void ResetBody(CPhysicsBody& body);
  void BuildArena();
  std::unique_ptr<IPhysicsGfxBridge> CreateBridge() const;

  void ApplyForces(float dt);
  void Integrate(float dt);
  void ReportAndRemove();
  void ReportBody(std::size_t index);
  void DamageBySpin(std::size_t index);
  void ReportAndRemoveKitten(std::size_t index);
  void RemoveBody(std::size_t index);
  void OpenDoor();
  void CloseDoor();

  IPhysicsGfxBridgeFactory* myBridgeFactory = nullptr;
  // 0 to 6 the walls, 7 the monster, from 8 on the kittens.
  std::vector<CPhysicsBody> myBodies;
  CContactBuffer myContacts;
  CContactGenerator myGenerator;
};

}  // namespace brumble
