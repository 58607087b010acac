#pragma once

#include "game/gamerules.h"

namespace brumble {

// The process-wide state of the rules: there is one game at a time in a process.
struct SGameState {
  int kittensLeft = kKittensPerGame;  // still to be dropped
  int kittensInPlay = 0;
  int stake = 0;  // the points of the kittens in play
  bool isGameOver = false;
  unsigned lastRemoval = 0;   // game clock
  unsigned lastHitSound = 0;  // game clock

  // The sign that was shown last; if the next one comes soon, it goes below.
  bool hasSign = false;
  unsigned signTime = 0;       // application time
  unsigned nextSignSound = 0;  // when the next sign may sound, application time
  int signTargetY = 0;
  int signHeight = 0;
};

SGameState& GameState();

}  // namespace brumble
