#pragma once

#include "game/physics/physicsgfxbridge.h"

#include <cstdint>
#include <memory>

namespace brumble {

enum EBodyShape : std::int32_t { kCircle = 0, kBox = 1 };

enum EBodyKind : std::int32_t {
  kDynamic = 0,  // falls
  kStatic = 1,   // never moves
  kDriven = 4,   // does not fall; follows the mouse, but impulses move it too
};

// One body of the world, kept by value. World units, seconds and radians; y points downward.
struct CPhysicsBody {
  std::int32_t shape = kCircle;
  float halfWidth = 0.0F;   // box: half extent along its own x axis; circle: radius
  float halfHeight = 0.0F;  // box: half extent along its own y axis; circle: for the bridge only
  float x = 0.0F;           // centre
  float y = 0.0F;
  float angle = 0.0F;  // a box's own x axis is (cos angle, sin angle)
  float vx = 0.0F;
  float vy = 0.0F;
  float angularVelocity = 0.0F;
  float invMass = 0.0F;     // 1/mass; 0 cannot be moved
  float invInertia = 0.0F;  // 1/moment of inertia; 0 cannot be turned
  std::int32_t kind = kDynamic;
  std::int32_t look = 0;  // a kitten's fur: 0, 1 or 2
  std::unique_ptr<IPhysicsGfxBridge> bridge;
};

}  // namespace brumble
