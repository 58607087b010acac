#pragma once

#include "game/physics/geometry.h"

namespace brumble {

// A place on the screen, in pixels.
struct SScreenPoint {
  int x = 0;
  int y = 0;

  bool operator==(const SScreenPoint&) const = default;
};

inline constexpr int kScreenWidth = 800;
inline constexpr int kScreenHeight = 600;

// The transform of the game: the world's origin in the middle of the screen.
inline constexpr SVec2 kScreenOffset = {400.0F, 300.0F};
inline constexpr SVec2 kScreenScale = {6.0F, 6.0F};

// Sets the way from world units to pixels for the whole process; the identity until then.
void SetScreenTransform(SVec2 offset, SVec2 scale);

// For placing sprites: keeps the fraction.
SVec2 ToScreen(SVec2 world);

// For effects and floating numbers: half a pixel is added, then the fraction dropped.
SScreenPoint ToScreenPixel(SVec2 world);

}  // namespace brumble
