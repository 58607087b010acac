#pragma once

#include "game/physics/physicsbody.h"

#include <array>
#include <cstdint>

namespace brumble {

// The arena and the numbers that its rules fix. World units, seconds and radians; y points
// downward, and the screen shows x from -66.7 to 66.7 and y from -50 to 50 (screentransform.h).

struct SArenaBody {
  std::int32_t shape;
  float halfWidth;
  float halfHeight;
  float x;
  float y;
  float angle;
  std::int32_t kind;
};

// Body indices.
inline constexpr int kRightWallIndex = 1;
inline constexpr int kDoorIndex = 2;
inline constexpr int kMonsterIndex = 7;
inline constexpr int kFirstKittenIndex = 8;  // every body from here on is a kitten

inline constexpr float kDoorShutY = -25.0F;
inline constexpr float kDoorOpenY = -45.0F;

inline constexpr std::array<SArenaBody, kFirstKittenIndex> kArena = {{
    {kBox, 8.0F, 30.0F, -60.0F, 25.0F, 0.03F, kStatic},       // left wall, lower part
    {kBox, 7.0F, 90.0F, 60.0F, 30.0F, 0.02F, kStatic},        // right wall
    {kBox, 7.0F, 25.0F, -65.0F, kDoorShutY, -0.1F, kStatic},  // oven door in the left wall
    {kBox, 7.0F, 25.0F, 67.0F, -20.0F, 0.0F, kStatic},        // right wall, upper part
    {kBox, 5.0F, 150.0F, -67.0F, -200.0F, 0.0F, kStatic},     // left shaft wall above the screen
    {kBox, 5.0F, 150.0F, 67.0F, -200.0F, 0.0F, kStatic},      // right shaft wall
    {kBox, 80.0F, 5.0F, 0.0F, -190.0F, 0.0F, kStatic},        // ceiling of the shaft
    {kCircle, 5.0F, 5.0F, 0.0F, 0.0F, 0.0F, kDriven},         // the monster
}};

// A kitten beyond these is in the oven or in the fire.
inline constexpr float kOvenX = 64.0F;
inline constexpr float kHellY = 50.0F;

inline constexpr float kMaxStep = 0.05F;
inline constexpr float kGravity = 9.83F;
inline constexpr float kDamping = 0.999F;  // of the velocity, per step whatever its length

// A body that spins faster than this loses health: the square of its spin over the divisor.
inline constexpr float kDamageSpin = 5.0F;
inline constexpr float kDamageDivisor = 5.0F;

// The monster's and a kitten's mass lie between the base and the base plus the spread.
inline constexpr float kMassBase = 1.0F;
inline constexpr float kMassSpread = 2.0F;
inline constexpr float kKittenHalf = 2.5F;
inline constexpr float kKittenTurn = 6.282F;  // a kitten starts at any angle below this
inline constexpr std::int32_t kKittenLooks = 3;
inline constexpr float kSpawnY = -50.0F;
inline constexpr float kSpawnWidth = 100.0F;
inline constexpr float kSpawnLeft = -50.0F;

// A body that has been reset: a circle beside the others.
inline constexpr float kResetRadius = 2.2F;
inline constexpr float kResetMassBase = 3.1F;
inline constexpr float kResetMassSpread = 0.10000014F;
inline constexpr float kResetSpacing = 2.0F;
inline constexpr float kResetY = -7.8F;
inline constexpr float kResetCounterDrop = 4.4F;

// The mouse drive: below the free speed on both axes the monster goes where it is told, else its
// speed tends to the limit.
inline constexpr float kFreeSpeed = 1.0F;
inline constexpr float kMonsterSpeedLimit = 75.0F;
inline constexpr float kMonsterSpeedGrowth = 0.04F;

}  // namespace brumble
