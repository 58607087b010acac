#include "game/gamestate.h"

namespace brumble {

CGameState& GameState() {
  static CGameState state;
  return state;
}

}  // namespace brumble
