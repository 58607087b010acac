#include "utils/timer/globaltimerimpl.h"

#include <SDL.h>

#include <utility>

namespace vask {
namespace {

// Never freed: timers are read until the very end of the process.
CSmartPtr<IGlobalTimerImpl>& Current() {
  static auto* const clock = new CSmartPtr<IGlobalTimerImpl>(new CGlobalTimerImplTimeH);
  return *clock;
}

}  // namespace

unsigned CGlobalTimerImplTimeH::GetTicks() {
  // Timers are made by static initialisers, long before the window starts SDL's video; SDL's
  // counter does not run until the library has been initialised.
  if (!myStarted) {
    myStarted = true;
    SDL_Init(0);
  }
  return SDL_GetTicks();
}

CSmartPtr<IGlobalTimerImpl> GetGlobalTimerImpl() { return Current(); }

void SetGlobalTimerImpl(CSmartPtr<IGlobalTimerImpl> clock) { Current() = std::move(clock); }

unsigned GetGlobalTime() { return Current() ? Current()->GetTicks() : 0; }

}  // namespace vask
