#include "game/animations.h"

#include "gfx/animation/animatedsprite.h"

namespace brumble {

void SetAnimationPlaying(vask::CSprite* sprite, bool isPlaying) {
  auto* const animated = dynamic_cast<vask::CAnimatedSprite*>(sprite);
  if (animated == nullptr) {
    return;
  }
  if (isPlaying) {
    animated->Play();
  } else {
    animated->Stop();
  }
}

}  // namespace brumble
