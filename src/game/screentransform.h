#pragma once

#include "game/physics/geometry.h"

namespace brumble {

// A place on the screen, in pixels.
struct CScreenPoint {
  int x = 0;
  int y = 0;

  bool operator==(const CScreenPoint&) const = default;
};

inline constexpr int kScreenWidth = 800;
inline constexpr int kScreenHeight = 600;

// The transform of the game: the world's origin in the middle of the screen.
inline constexpr CVec2 kScreenOffset = {400.0F, 300.0F};
inline constexpr CVec2 kScreenScale = {6.0F, 6.0F};

// Sets the way from world units to pixels for the whole process; the identity until then.
void SetScreenTransform(CVec2 offset, CVec2 scale);

// For placing sprites: keeps the fraction.
CVec2 ToScreen(CVec2 world);

// For effects and floating numbers: half a pixel is added, then the fraction dropped.
CScreenPoint ToScreenPixel(CVec2 world);

}  // namespace brumble
