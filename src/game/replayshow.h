#pragma once

#include "game/replayedgame.h"
#include "gfx/sprite/sprite.h"
#include "utils/timer/timer.h"

#include <string>

namespace vask {
class CTextSprite;
}

namespace brumble {

// A recorded game on the screen: plays it in its own time, or in that which the keys make of it
// (blank holds it and lets it go on, right arrow goes on by one drawn frame, up and down double and
// halve the speed), and shows the time. Above twice the speed no effects come, and no sounds.
class CReplayShow {
 public:
  // As CReplayedGame.
  CReplayShow(CPlay& play, const std::string& file, bool stopsAtDifference);
  ~CReplayShow();
  CReplayShow(const CReplayShow&) = delete;
  CReplayShow& operator=(const CReplayShow&) = delete;

  // Shows the word "DEMO" instead of the time, and hears no keys.
  void MakeDemo();
  void Update();
  // While the task is paused.
  void Pause();
  void Resume();
  // Does nothing while the task is paused.
  void OnKey(int key);

  const CReplayedGame& GetGame() const { return myGame; }
  // Whether the game moves at all.
  bool IsHeld() const { return myIsHeld; }

 private:
  void PlayUpTo(unsigned time);
  void SetSpeed(int doublings);
  void ShowTime();

  CReplayedGame myGame;
  vask::CTimer myClock;  // application time; stands with the task
  unsigned myTime = 0;   // of the game, up to which it has been played
  unsigned myRest = 0;   // of a millisecond, at less than the full speed, in eighths
  int myDoublings = 0;   // of the speed; negative: halvings
  bool myIsHeld = false;
  bool myIsPaused = false;
  vask::CSpritePtr mySprite;
  vask::CTextSprite* myReadout;  // the same; null for a demo
};

}  // namespace brumble
