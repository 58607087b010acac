#pragma once

#include "utils/timer/timer.h"

namespace vask {

// The global clock as a timer: the default source of every timer. Its time is the clock's, whatever
// is done to it.
class CDerivedGlobalTimer : public CTimer {
 public:
  CDerivedGlobalTimer() : CTimer(SRootTag{}) {}
  using CTimer::operator=;
  unsigned GetTime() const override;

  // The process-wide instance; never deleted.
  static CDerivedGlobalTimer* Instance();
};

}  // namespace vask
