#pragma once

#include "utils/timer/timer.h"

namespace vask {

// A source that stands at the last reading of a clock: the timers built on it agree about the time
// for as long as nobody reads again, and they can be given the readings of another day.
class CReadingTimer : public CTimer {
 public:
  CReadingTimer() : CTimer(SRootTag{}) {}
  using CTimer::operator=;
  unsigned GetTime() const override { return myReading; }
  void SetReading(unsigned milliseconds) { myReading = milliseconds; }

 private:
  unsigned myReading = 0;
};

}  // namespace vask
