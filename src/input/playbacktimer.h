#pragma once

#include "utils/timer/globaltimerimpl.h"

namespace vask {

// A clock that returns what it was last set to, for a playback to drive.
class CPlaybackTimer : public IGlobalTimerImpl {
 public:
  unsigned GetTicks() override { return myTime; }
  void SetTime(unsigned milliseconds) { myTime = milliseconds; }

 private:
  unsigned myTime = 0;  // milliseconds
};

}  // namespace vask
