#pragma once

#include "game/gamestory.h"
#include "game/kittenview.h"
#include "gfx/sprite/sprite.h"

#include <array>
#include <cstddef>
#include <vector>

namespace vask {
class CAnimatedSprite;
}

namespace brumble {

// What the monster's face does: its pupils look at the nearest kitten, it drums its feet while that
// one is above the screen, licks its lips when the oven opens and winces at a kitten that burns.
class CMonsterFace {
 public:
  // A new game; the story so far is no news.
  void Begin(const SGameStory& story);
  // `monster` may be null, as before its first step, or a sprite without animations: then there are
  // no pupils.
  void Update(vask::CSprite* monster, const std::vector<SKittenView>& kittens,
              const SGameStory& story);

 private:
  void ChooseAnimation(vask::CAnimatedSprite& monster, bool isKittenAbove, const SGameStory& story);
  void LoadPupils();
  void PlacePupils(const vask::CAnimatedSprite& monster, const SKittenView* target);

  std::array<vask::CSpritePtr, 2> myPupils;  // left, right
  std::size_t myFates = 0;                   // of the story, seen so far
  int myDoorOpenings = 0;
};

}  // namespace brumble
