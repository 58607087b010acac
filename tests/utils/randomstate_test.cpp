#include "utils/randomstate.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

TEST(RandomState, GivesTheSequenceThatIsPublishedForTheSeed) {
  CRandomState random;
  // SplitMix64's published first values for the seed 0, and one that was computed apart.
  EXPECT_EQ(random.Next(), 0xE220A839U);
  EXPECT_EQ(random.Next(), 0x6E789E6AU);
  random.SetSeed(7);
  EXPECT_EQ(random.Next(), 0xB899824CU);
}

}  // namespace
}  // namespace vask
