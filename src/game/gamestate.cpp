#include "game/gamestate.h"

namespace brumble {

SGameState& GameState() {
  static SGameState state;
  return state;
}

}  // namespace brumble
