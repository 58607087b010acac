#include "platform/wallclock.h"

#include <ctime>

namespace vask::platform {
namespace {

WallClock& Installed() {
  static WallClock clock = nullptr;
  return clock;
}

}  // namespace

std::int64_t WallClockSeconds() {
  return Installed() != nullptr ? Installed()() : static_cast<std::int64_t>(std::time(nullptr));
}

void SetWallClock(WallClock clock) { Installed() = clock; }

}  // namespace vask::platform
