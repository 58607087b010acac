#pragma once

#include "game/gamestory.h"
#include "game/kittenview.h"
#include "gfx/sprite/sprite.h"

#include <vector>

namespace brumble {

// Three hints for a player who has never served a kitten: spin it, watch the lamps, push it into
// the open door.
class CHints {
 public:
  // A new game; a player who has served a kitten before needs no hints.
  void Begin(bool isNovice) { myIsNovice = isNovice; }
  void Update(const std::vector<SKittenView>& kittens, const SGameStory& story);
  void SetPlaying(bool isPlaying);
  // Takes the hints off the screen.
  void End();

 private:
  bool myIsNovice = false;
  vask::CSpritePtr mySpin;  // empty while they are not shown
  vask::CSpritePtr myLamps;
  vask::CSpritePtr myDoor;
};

}  // namespace brumble
