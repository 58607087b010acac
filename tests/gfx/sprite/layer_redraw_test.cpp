#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

// fuzz/layers.cpp: changes sprites on nested layers as the bytes tell, and ends the process at the
// first frame that is not what SDL alone draws. `scripts/fuzz --try layers FILE` shows such an
// input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vask::test {
namespace {

TEST(LayerRedraw, ShowsWhatPaintingEverythingShows) {
  std::mt19937 random;
  std::vector<std::uint8_t> choices(4000);
  for (int input = 0; input < 120; ++input) {
    std::ranges::generate(choices, [&] { return static_cast<std::uint8_t>(random()); });
    LLVMFuzzerTestOneInput(choices.data(), choices.size());
  }
}

}  // namespace
}  // namespace vask::test
