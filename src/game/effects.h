#pragma once

#include "game/physics/screentransform.h"

#include <string>

namespace brumble {

// The short-lived things that tell the player what has happened.

// A sign that drops into the middle of the screen; signs that follow quickly stack downward.
void ShowSign(const std::string& file);

// A sprite that goes by itself: centred on the position unless one of its coordinates is 0, moved
// towards the target along the expression unless that is empty.
void ShowEffect(const std::string& file, SScreenPoint position, SScreenPoint target,
                const std::string& expression);

// A sound, through the application console.
void PlayEffect(const std::string& file);

}  // namespace brumble
