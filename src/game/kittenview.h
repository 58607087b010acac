#pragma once

#include "game/physics/geometry.h"

#include <vector>

namespace brumble {

class CPhysicsWorld;
class IPhysicsGfxBridge;

// A kitten of the world, for what follows it on the screen.
struct SKittenView {
  // The same as long as the kitten is in the world, whatever becomes of its index.
  const IPhysicsGfxBridge* bridge = nullptr;
  SVec2 position;  // pixels of the screen, the centre
  int hair = 1;    // 1 full, 2 thinning, 3 bald
  float health = 0.0F;
};

// Half the side of a kitten's picture, in pixels.
inline constexpr float kKittenPictureHalf = 23.0F;
// The side of the picture that marks a kitten above the screen, in pixels.
inline constexpr int kAboveMarkerSide = 36;

// The kittens that have a bridge, by their index.
std::vector<SKittenView> KittensIn(const CPhysicsWorld& world);

// Whether nothing of the kitten is to be seen, because it is above the screen.
bool IsAboveScreen(const SKittenView& kitten);

}  // namespace brumble
