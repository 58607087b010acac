#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/random.h"

namespace vask::test {

// Answers a fixed list of random numbers, over and over, for as long as it lives.
class CFakeRandom : public platform::IRandomSource {
 public:
  explicit CFakeRandom(std::vector<int> numbers = {0})
      : myNumbers(std::move(numbers)), myPrevious(platform::SetRandomSource(this)) {}
  ~CFakeRandom() override { platform::SetRandomSource(myPrevious); }
  CFakeRandom(const CFakeRandom&) = delete;
  CFakeRandom& operator=(const CFakeRandom&) = delete;

  void Seed(unsigned seed) override { lastSeed = seed; }
  int Next() override { return myNumbers[drawn++ % myNumbers.size()]; }

  std::size_t drawn = 0;
  unsigned lastSeed = 0;

 private:
  std::vector<int> myNumbers;
  platform::IRandomSource* myPrevious;
};

}  // namespace vask::test
