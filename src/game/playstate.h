#pragma once

#include "game/replay/statefield.h"

namespace brumble {

class CPlay;

// The state of play between two inputs: what moves, the kittens' health and records, the boards'
// targets, what the rules count, and the random numbers.
CStateFields StateOf(const CPlay& play);

}  // namespace brumble
