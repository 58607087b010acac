#include "utils/timer/derivedglobaltimer.h"

#include "utils/timer/globaltimerimpl.h"

namespace vask {

unsigned CDerivedGlobalTimer::GetTime() const { return GetGlobalTime(); }

CDerivedGlobalTimer* CDerivedGlobalTimer::Instance() {
  static auto* const instance = new CDerivedGlobalTimer;
  return instance;
}

}  // namespace vask
