#pragma once

#include "utils/timer/globaltimerimpl.h"

namespace vask::tester {

// Takes the place of the global clock for as long as it lives, so that a self-test neither waits
// nor moves the program's time on. It goes on by `step` milliseconds each time it is read.
class CStandInClock {
 public:
  explicit CStandInClock(unsigned step) : myClock(new SClock) {
    myClock->step = step;
    SetGlobalTimerImpl(CSmartPtr<IGlobalTimerImpl>(myClock));
  }
  ~CStandInClock() { SetGlobalTimerImpl(myPrevious); }
  CStandInClock(const CStandInClock&) = delete;
  CStandInClock& operator=(const CStandInClock&) = delete;

  void Advance(unsigned milliseconds) { myClock->now += milliseconds; }
  unsigned Now() const { return myClock->now; }

 private:
  struct SClock : IGlobalTimerImpl {
    unsigned GetTicks() override { return now += step; }
    unsigned now = 0xFFFFFF00U;  // the wrap comes within every test
    unsigned step = 0;
  };

  CSmartPtr<IGlobalTimerImpl> myPrevious = GetGlobalTimerImpl();
  SClock* myClock;
};

}  // namespace vask::tester
