#pragma once

#include "utils/timer/globaltimerimpl.h"

namespace vask::test {

// Stops the global clock at a chosen time for as long as it lives; only Advance() moves it on.
class CFakeClock {
 public:
  explicit CFakeClock(unsigned start = 1000) : myClock(new CStoppedClock) {
    myClock->now = start;
    SetGlobalTimerImpl(CSmartPtr<IGlobalTimerImpl>(myClock));
  }
  ~CFakeClock() { SetGlobalTimerImpl(myPrevious); }
  CFakeClock& operator=(CFakeClock&&) = delete;  // neither moved nor copied

  unsigned Now() const { return myClock->now; }
  void Advance(unsigned milliseconds) { myClock->now += milliseconds; }

 private:
  struct CStoppedClock : IGlobalTimerImpl {
    unsigned GetTicks() override { return now; }
    unsigned now = 0;
  };

  CSmartPtr<IGlobalTimerImpl> myPrevious = GetGlobalTimerImpl();
  CStoppedClock* myClock;
};

}  // namespace vask::test
