#pragma once

#include "game/physics/gamelogicreceiver.h"

#include <cstdint>

namespace brumble {

// The process-wide state: there is one game in a process, and a new world goes on where the last
// one stopped.
struct SWorldState {
  bool isDoorOpen = false;
  IGameLogicReceiver* receiver = nullptr;  // not owned
  std::int32_t resetCounter = 0;           // where the next reset body waits
  std::int32_t lookCounter = 0;            // kittens born so far
};

SWorldState& WorldState();

}  // namespace brumble
