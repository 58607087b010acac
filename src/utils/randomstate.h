#pragma once

#include "designpatterns/singleton.h"

#include <cstdint>

namespace vask {

// The engine's random numbers: each is made of the seed and of its place in the sequence, so that a
// recording needs to keep nothing but the seed. The game does not draw from here but from
// platform::Rand().
class CRandomState : public CStaticSingleton<CRandomState> {
 public:
  // Starts again: equal seeds give equal sequences.
  void SetSeed(std::uint32_t seed);
  // The next number; every 32-bit value is as likely as any other.
  std::uint32_t Next();

 private:
  std::uint32_t mySeed = 0;
  std::uint32_t myStep = 0;  // numbers drawn since the seed was set
};

}  // namespace vask
