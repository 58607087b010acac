#pragma once

#include "game/gamerules.h"
#include "game/physics/arena.h"
#include "game/physics/geometry.h"

#include <vector>

namespace brumble {

// The rules' record of one kitten in play.
struct CKittenRecord {
  bool myTouchedThisTick = false;  // by the monster
  SVec2 myPosition;                // world units
  SVec2 myTouchPosition;           // of the monster's last touch
  int myDamageBonus = 0;           // the points of its wall hits
  float myLastHealth = kFullHealth;
  int myLastToucher = kNoToucher;  // a wall or the monster
  unsigned myLastSpinTime = 0;     // game clock, of the last spin that scored
  int mySpinCount = 0;             // scored spins of the current run
  std::vector<int> myTouches;      // every toucher, in order
  int myScore = 0;                 // all points so far: the kitten's stake
  SVec2 myRestPlace;               // where its rest began
  unsigned myRestStart = 0;        // game clock; a push begins the rest anew
  unsigned myPushWait = kFirstPushWait;

  bool IsMonsterLast() const { return myLastToucher == kMonsterIndex; }

  // Takes the kitten's new position. A position within the monster's reach, or too far from where
  // the rest began, ends the rest.
  void MoveTo(SVec2 position, unsigned now);
  // Whether it has rested out of the monster's reach for so long that it needs a push.
  bool IsPushDue(unsigned now) const;
  // Notes a push: the next one is due sooner, unless the kitten moves.
  void NotePush(unsigned now);

  // The points for the thresholds that the health has fallen through since the last call.
  int PassThresholds(float health);
  // Whether a run of spins has been idle for too long.
  bool IsSpinRunOver(unsigned now) const;
  // Whether a spin at that speed scores now.
  bool IsSpinScoring(float angularVelocity, unsigned now) const;
  // Counts a spin and returns its points: each spin of a run is worth one share more.
  int CountSpin(int thresholdPoints, unsigned now);
};

// What the touches of a kitten in the oven earn.
struct STouchStory {
  int monsterTouches = 0;
  bool isOneTouch = false;    // nothing but the monster touched it before the monster's last touch
  bool isWallBounce = false;  // the right wall touched it after the monster's last touch
};

STouchStory ReadTouches(const std::vector<int>& touches);

// The points of a wall hit, before they are multiplied.
int WallHitPoints(float impulseSquared);

}  // namespace brumble
