#include "platform/random.h"

#include <cstdint>

namespace vask::platform {
namespace {

// The sample generator of ISO C (C11, 7.22.2.2): a 32-bit linear congruence of which 15 bits are
// used. The C library's own returns 31 bits here, too many for the formulas.
std::uint32_t ourState = 1;

}  // namespace

int Rand() {
  ourState = ourState * 1103515245U + 12345U;
  return static_cast<int>((ourState >> 16U) & 0x7FFFU);
}

void SeedRand(unsigned seed) { ourState = seed; }

unsigned RandState() { return ourState; }

}  // namespace vask::platform
