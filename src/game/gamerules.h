#pragma once

#include "game/physics/screentransform.h"

#include <array>

namespace brumble {

// The numbers that the rules fix: times in milliseconds of the game clock, places in pixels.

inline constexpr int kKittensPerGame = 10;
inline constexpr unsigned kSpawnPause = 600;  // from one kitten's end to the next one's start

inline constexpr int kNoToucher = 8;  // in the place of a body index: nothing touched it yet

// Hits. Squared impulses must exceed these.
inline constexpr float kAudibleImpulse = 5000.0F;
inline constexpr float kDamagingImpulse = 3000.0F;
inline constexpr unsigned kHitSoundPause = 350;
inline constexpr int kLeastWallPoints = 5;
inline constexpr int kMostWallPoints = 1000;
inline constexpr int kBigHitPoints = 100;

// Spinning.
inline constexpr float kFullHealth = 3000.0F;
inline constexpr std::array<float, 3> kHealthThresholds = {3000.0F, 1500.0F, 0.0F};
inline constexpr int kThresholdPoints = 5;
inline constexpr float kScoringSpin = 10.0F;  // radians per second, to be exceeded
inline constexpr unsigned kMonsterSpinPause = 250;
inline constexpr unsigned kWallSpinPause = 350;
inline constexpr unsigned kSpinRunEnd = 750;
inline constexpr int kSpinPoints = 5;
inline constexpr int kMonsterSpinPoints = 5;  // on top
inline constexpr int kSpinsPerBonus = 5;
inline constexpr int kGuruSpins = 10;  // a run of fewer makes a master only

// A kitten that comes to rest above the monster's reach, such as on the ledge between the right
// wall and the shaft, is pushed, or the game would wait for it for ever. World units.
inline constexpr float kReachTop = -55.2F;  // above it the monster's rim reaches no corner
inline constexpr float kRestRadius = 1.0F;
inline constexpr SVec2 kPushVelocity = {-20.0F, -20.0F};
inline constexpr unsigned kFirstPushWait = 8000;
inline constexpr unsigned kNextPushWait = 5000;

// The oven.
inline constexpr int kGrillPoints = 500;  // on top of the damage bonus
inline constexpr int kBashingDamage = 5000;
inline constexpr float kLongShotSquared = 2500.0F;  // squared world units
inline constexpr SScreenPoint kOvenTextPlace = {50, 150};
inline constexpr int kOvenTextLine = 25;
inline constexpr SScreenPoint kDoorOpenPlace = {0, -100};
inline constexpr SScreenPoint kDoorShutPlace = {0, 0};
inline constexpr unsigned kDoorTime = 1000;
inline constexpr int kHellfireY = 546;

// Boards.
inline constexpr SScreenPoint kScorePlace = {270, 560};
inline constexpr SScreenPoint kStakePlace = {270, 530};
inline constexpr SScreenPoint kKittensLeftPlace = {562, 558};

}  // namespace brumble
