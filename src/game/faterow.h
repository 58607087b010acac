#pragma once

#include "game/gamestory.h"
#include "game/physics/screentransform.h"
#include "gfx/sprite/sprite.h"

#include <cstddef>
#include <vector>

namespace brumble {

// A row of small pictures, one for each kitten of a game: a plate for one that was served, a ghost
// for one that burnt, a kitten for one that is still to come.
class CFateRow {
 public:
  // Shows a game in which nothing has happened yet; the first picture is at `place`.
  void Begin(SScreenPoint place, int step, int depth);
  // Shows the fates that are new.
  void Update(const std::vector<EFate>& fates);

 private:
  void Show(std::size_t number, const char* file);

  SScreenPoint myPlace;
  int myStep = 0;  // pixels from one picture to the next
  int myDepth = 0;
  std::vector<vask::CSpritePtr> myPictures;
  std::size_t myShown = 0;  // fates
};

}  // namespace brumble
