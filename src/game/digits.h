#pragma once

#include "game/physics/screentransform.h"
#include "gfx/sprite/sprite.h"

namespace brumble {

// The width of a number in the digits font, in pixels.
int NumberWidth(int number);

// A number in the digits font, on the screen at once; its upper left corner is at `place`. Empty
// without the font.
vask::CSpritePtr ShowNumber(int number, SScreenPoint place, int depth);

}  // namespace brumble
