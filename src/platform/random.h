#pragma once

namespace vask::platform {

// The greatest value that Rand() returns; the game's formulas divide by it.
inline constexpr int kRandMax = 32767;

// A source of pseudo-random numbers, 0 to kRandMax each.
class IRandomSource {
 public:
  virtual ~IRandomSource() = default;
  virtual void Seed(unsigned seed) = 0;
  virtual int Next() = 0;
  // What all further numbers depend on; 0 for a source that doesn't tell.
  virtual unsigned GetState() const { return 0; }
};

// The next number of the current source, 0 to kRandMax.
int Rand();

// Starts the current source again: equal seeds give equal sequences.
void SeedRand(unsigned seed);

// The state of the current source: where it is equal, equal numbers follow.
unsigned RandState();

// Replaces the source (not owned; null restores the built-in one) and returns the one before, null
// for the built-in one.
IRandomSource* SetRandomSource(IRandomSource* source);

}  // namespace vask::platform
