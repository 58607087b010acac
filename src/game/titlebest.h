#pragma once

#include "gfx/sprite/sprite.h"

namespace brumble {

// The best score so far on the title screen; nothing when there is none.
class CTitleBest {
 public:
  void Show();
  void Hide();

 private:
  vask::CSpritePtr myCaption;
  vask::CSpritePtr myNumber;
};

}  // namespace brumble
