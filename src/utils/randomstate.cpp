#include "utils/randomstate.h"

namespace vask {

void CRandomState::SetSeed(std::uint32_t seed) {
  mySeed = seed;
  myStep = 0;
}

// The mixing step of the SplitMix64 generator over seed and step.
std::uint32_t CRandomState::Next() {
  std::uint64_t mixed = (static_cast<std::uint64_t>(mySeed) << 32U | myStep++) + 1;
  mixed *= 0x9E3779B97F4A7C15U;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  return static_cast<std::uint32_t>((mixed ^ (mixed >> 31U)) >> 32U);
}

}  // namespace vask
