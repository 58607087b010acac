#pragma once

#include "utils/timer/globaltimerimpl.h"

namespace vask::test {

// Stops the global clock at a chosen time for as long as it lives; only Advance() moves it on.
class CFakeClock {
 public:
  explicit CFakeClock(unsigned start = 1000)
      : myPrevious(GetGlobalTimerImpl()), myClock(new CStoppedClock(start)) {
    SetGlobalTimerImpl(CSmartPtr<IGlobalTimerImpl>(myClock));
  }
  ~CFakeClock() { SetGlobalTimerImpl(myPrevious); }
  CFakeClock(const CFakeClock&) = delete;
  CFakeClock& operator=(const CFakeClock&) = delete;

  unsigned Now() const { return myClock->now; }
  void Advance(unsigned milliseconds) { myClock->now += milliseconds; }

 private:
  struct CStoppedClock : IGlobalTimerImpl {
    explicit CStoppedClock(unsigned start) : now(start) {}
    unsigned GetTicks() override { return now; }
    unsigned now;
  };

  CSmartPtr<IGlobalTimerImpl> myPrevious;
  CStoppedClock* myClock;
};

}  // namespace vask::test
