#include "utils/randomstate.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

TEST(RandomState, EqualSeedsGiveEqualSequences) {
  CRandomState random;
  // SplitMix64's published first value for the seed 0, and one that was computed apart.
  EXPECT_EQ(random.Next(), 0xE220A839U);
  random.SetSeed(7);
  EXPECT_EQ(random.Next(), 0xB899824CU);
}

TEST(RandomState, EachBitIsSetInHalfOfTheNumbers) {
  CRandomState random;
  int set[32] = {};
  for (int i = 0; i < 10'000; ++i) {
    const std::uint32_t number = random.Next();
    for (unsigned bit = 0; bit < 32; ++bit) {
      set[bit] += static_cast<int>(number >> bit & 1U);
    }
  }
  for (const int count : set) {
    EXPECT_NEAR(count, 5'000, 250) << "five standard deviations";
  }
}

}  // namespace
}  // namespace vask
