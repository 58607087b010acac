#pragma once

#include "game/physics/screentransform.h"

#include <string>

namespace brumble {

// Short-lived signs, sprites and sounds that tell the player what has happened.

// Whether signs, sprites and sounds come at all; they do at the start. Without them a game takes
// the same course.
void SetEffectsShown(bool areShown);
bool AreEffectsShown();

// Shows a sign that drops into the middle of the screen; signs in quick succession stack downward
// and sound one after the other.
void ShowSign(const std::string& file);

// Shows a sprite for 2.1 seconds: centred on the position unless one of its coordinates is 0, moved
// to the target along the expression unless that is empty.
void ShowEffect(const std::string& file, SScreenPoint position, SScreenPoint target,
                const std::string& expression);

// Plays a sound through the application console.
void PlayEffect(const std::string& file);

}  // namespace brumble
