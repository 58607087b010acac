#pragma once

#include "platform/random.h"

namespace vask::test {

// Every random number is the given one for as long as it lives.
class CFakeRandom : public platform::IRandomSource {
 public:
  explicit CFakeRandom(int number) : myNumber(number) {}
  ~CFakeRandom() override { platform::SetRandomSource(myPrevious); }
  CFakeRandom& operator=(CFakeRandom&&) = delete;  // neither moved nor copied

  void Seed(unsigned) override {}
  int Next() override { return myNumber; }

 private:
  int myNumber;
  platform::IRandomSource* myPrevious = platform::SetRandomSource(this);
};

}  // namespace vask::test
