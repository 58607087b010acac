#pragma once

#include <cstdint>

namespace brumble {

// What a game begins with: its seed, and what outlives the game before it. A new game makes every
// body anew, also the kittens that are left over, so their number is all that counts of them.
struct SGameStart {
  std::uint32_t seed = 0;
  bool isDoorOpen = false;
  std::int32_t resetCounter = 0;  // as in SWorldState
  std::int32_t lookCounter = 0;
  std::int32_t bodies = 0;
  std::int32_t pointerX = 0;  // pixels of the window
  std::int32_t pointerY = 0;
  bool isPaused = false;  // the task

  bool operator==(const SGameStart&) const = default;
};

}  // namespace brumble
