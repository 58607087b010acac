#include "game/physics/worldstate.h"

namespace brumble {

SWorldState& WorldState() {
  static SWorldState state;
  return state;
}

}  // namespace brumble
