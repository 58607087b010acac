#pragma once

#include "game/gamestory.h"
#include "game/kittenview.h"
#include "gfx/sprite/sprite.h"

#include <vector>

namespace brumble {

// The oven's own lights: the fire that breathes out of the open door, and the lamps beside it, of
// which the more are lit the nearer a kitten is to losing all its hair.
class COvenLights {
 public:
  void Begin();
  void Update(const std::vector<SKittenView>& kittens, const SGameStory& story);
  // Stops the fire, or lets it go on.
  void SetPlaying(bool isPlaying);

 private:
  void BurnWhen(bool burns);
  void Light(int lamps);

  vask::CSpritePtr myBreath;  // empty while the door is shut, or without effects
  vask::CSpritePtr myLamps;
  int myLit = 0;
};

}  // namespace brumble
