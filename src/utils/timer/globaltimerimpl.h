#pragma once

#include "utils/smartptr/smartptr.h"

namespace vask {

// Where the global clock takes its time from.
class IGlobalTimerImpl {
 public:
  virtual ~IGlobalTimerImpl() = default;
  // Milliseconds since an arbitrary start; wraps at 2^32.
  virtual unsigned GetTicks() = 0;
};

// SDL's millisecond counter.
class CGlobalTimerImplTimeH : public IGlobalTimerImpl {
 public:
  unsigned GetTicks() override;

 private:
  bool myStarted = false;
};

// The clock that every timer follows. A replacement is seen by all timers at once; the old one dies
// with its last smart pointer. An empty pointer makes the global time 0.
CSmartPtr<IGlobalTimerImpl> GetGlobalTimerImpl();
void SetGlobalTimerImpl(CSmartPtr<IGlobalTimerImpl> clock);

// The current clock's ticks; 0 without one.
unsigned GetGlobalTime();

}  // namespace vask
