#include "platform/processor.h"

#include <chrono>
#include <thread>

namespace vask::platform {

void YieldTimeSlice() { std::this_thread::yield(); }

void SleepMilliseconds(unsigned milliseconds) {
  if (milliseconds > 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }
}

}  // namespace vask::platform
