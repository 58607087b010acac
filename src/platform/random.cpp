#include "platform/random.h"

#include <cstdint>
#include <utility>

namespace vask::platform {
namespace {

// The sample generator of ISO C (C11, 7.22.2.2): a 32-bit linear congruence of which 15 bits are
// used. The C library's own returns 31 bits here, too many for the formulas.
class CBuiltInSource : public IRandomSource {
 public:
  void Seed(unsigned seed) override { myState = seed; }
  int Next() override {
    myState = myState * 1103515245U + 12345U;
    return static_cast<int>((myState >> 16U) & 0x7FFFU);
  }
  unsigned GetState() const override { return myState; }

 private:
  std::uint32_t myState = 1;
};

IRandomSource*& Installed() {
  static IRandomSource* source = nullptr;
  return source;
}

IRandomSource& Current() {
  static CBuiltInSource builtIn;
  return Installed() != nullptr ? *Installed() : builtIn;
}

}  // namespace

int Rand() { return Current().Next(); }

void SeedRand(unsigned seed) { Current().Seed(seed); }

unsigned RandState() { return Current().GetState(); }

IRandomSource* SetRandomSource(IRandomSource* source) { return std::exchange(Installed(), source); }

}  // namespace vask::platform
