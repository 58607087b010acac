#pragma once

#include "game/physics/physicsworld.h"

#include <cstdint>
#include <memory>

namespace brumble {

// The game task's owner of the world: takes screen pixels and milliseconds, where the world takes
// world units and seconds. A handle that has been moved from has no world and does nothing.
class CPhysicsHandle {
 public:
  CPhysicsHandle();

  // Drives the monster towards a point of the 800 x 600 screen; the point is squeezed inwards so
  // that the monster stays inside the walls.
  void SetMousePosition(int x, int y);
  // Where the pointer has to be to drive the monster to a place of the world; whether that is on
  // the screen is the caller's concern.
  static SVec2 PointerFor(SVec2 place);
  void Step(unsigned milliseconds);
  // Returns the new body's index, 0 without a world.
  int SpawnKitten();
  void PushKitten(int index, SVec2 velocity);
  // With the clock for a seed, or another one.
  void ResetWorld();
  void ResetWorld(unsigned seed);

  // Null without a world.
  CPhysicsWorld* GetWorld() { return myWorld.get(); }
  const CPhysicsWorld* GetWorld() const { return myWorld.get(); }

 private:
  std::unique_ptr<CPhysicsWorld> myWorld;
  std::int32_t myMouseX = 0;  // pixels
  std::int32_t myMouseY = 0;
};

}  // namespace brumble
