#pragma once

namespace vask::platform {

// The greatest value that Rand() returns; the game's formulas divide by it.
inline constexpr int kRandMax = 32767;

// The next pseudo-random number, 0 to kRandMax.
int Rand();

// Starts the numbers again: equal seeds give equal sequences.
void SeedRand(unsigned seed);

// What all further numbers depend on: where it is equal, equal numbers follow.
unsigned RandState();

}  // namespace vask::platform
