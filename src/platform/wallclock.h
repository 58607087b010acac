#pragma once

#include <cstdint>

namespace vask::platform {

using WallClock = std::int64_t (*)();

// Seconds since 1970-01-01 UTC, from the operating system unless a test has replaced the clock.
std::int64_t WallClockSeconds();

// Replaces the clock; null restores the operating system's.
void SetWallClock(WallClock clock);

}  // namespace vask::platform
