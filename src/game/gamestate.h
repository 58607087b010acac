#pragma once

#include "game/gamerules.h"

namespace brumble {

// What the rules share: there is one game at a time in a process.
struct SGameState {
  int kittensLeft = kKittensPerGame;  // still to be dropped
  int kittensInPlay = 0;
  int stake = 0;  // the points of the kittens in play
  bool isGameOver = false;
  unsigned lastRemoval = 0;   // game clock
  unsigned lastHitSound = 0;  // game clock

  // The sign that was shown last: the next one, when it follows quickly, goes below it.
  bool hasSign = false;
  unsigned signTime = 0;  // application time
  int signTargetY = 0;
  int signHeight = 0;
};

SGameState& GameState();

}  // namespace brumble
