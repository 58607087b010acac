#include "game/physics/worldstate.h"

namespace brumble {

CWorldState& WorldState() {
  static CWorldState state;
  return state;
}

}  // namespace brumble
