#pragma once

#include "game/kittenview.h"
#include "gfx/sprite/sprite.h"

#include <cstddef>
#include <vector>

namespace brumble {

// Marks at the upper edge where kittens are that fly above the screen: a small head of the kitten's
// look, the smaller the higher it is.
class CAboveMarkers {
 public:
  // Places a mark for each kitten above the screen, and takes away the others.
  void Update(const std::vector<SKittenView>& kittens);

 private:
  struct SMarker {
    vask::CSpritePtr sprite;
    int hair = 0;  // none loaded
    int size = 0;
  };

  static void Place(SMarker& marker, const SKittenView& kitten);

  std::vector<SMarker> myMarkers;
};

}  // namespace brumble
