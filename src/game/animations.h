#pragma once

namespace vask {
class CSprite;
}

namespace brumble {

// Stops the animation of the sprite, or lets it go on. Nothing for null and for a sprite without
// animations.
void SetAnimationPlaying(vask::CSprite* sprite, bool isPlaying);

}  // namespace brumble
