#pragma once

#include "game/physics/geometry.h"
#include "game/physics/screentransform.h"

#include <cstdint>
#include <string_view>

namespace brumble {

class CPhysicsWorld;

// Steers the monster as people of simple habits do, for games that nobody has to sit through. Each
// manner plays every game to its end.
class CPilot {
 public:
  enum class EManner {
    kIdle,      // leaves the pointer where it is
    kSweeper,   // goes round and round, whatever comes
    kChaser,    // goes for the kitten
    kBouncer,   // keeps it in the air from below
    kSpinner,   // hits it on its side, so that it spins
    kPresser,   // presses it up the left wall, which spins it, and into the oven
    kFidgeter,  // jumps about
  };

  explicit CPilot(EManner manner, std::uint32_t seed) : myManner(manner), myNoise(seed) {}

  // Where the pointer should be now, in pixels of the window; `time` is that of the game.
  SScreenPoint PointerAt(const CPhysicsWorld& world, unsigned time);

  // Returns whether there is a manner of that name: "idle", "sweeper" and so on.
  static bool FindManner(std::string_view name, EManner& manner);

 private:
  SVec2 Wanted(const CPhysicsWorld& world, unsigned time);
  SVec2 Serve(const CPhysicsWorld& world, SVec2 kitten, unsigned time);
  // 0 to `range` - 1.
  int Noise(int range);

  EManner myManner;
  std::uint32_t myNoise;
  SVec2 myPlace;  // the fidgeter's
  unsigned myNextJump = 0;
};

}  // namespace brumble
