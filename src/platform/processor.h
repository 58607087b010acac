#pragma once

namespace vask::platform {

// Gives up the rest of this thread's time slice; comes back at once when nobody else wants it.
void YieldTimeSlice();

// Sleeps for about that many milliseconds; 0 returns at once.
void SleepMilliseconds(unsigned milliseconds);

}  // namespace vask::platform
