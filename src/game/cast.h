#pragma once

#include "game/abovemarkers.h"
#include "game/faterow.h"
#include "game/gamestory.h"
#include "game/hints.h"
#include "game/monsterface.h"
#include "game/ovenlights.h"
#include "game/speech.h"
#include "utils/timer/timer.h"

namespace brumble {

class CPhysicsWorld;

// What lives on the screen of play beside the bodies and the boards. It only shows: nothing in it
// changes the world or the rules, or draws from their random numbers.
class CCast {
 public:
  CCast();

  // A new game, after its world has been set up. A novice gets hints.
  void Begin(const SGameStory& story, bool isNovice);
  // After the steps of a frame.
  void Update(const CPhysicsWorld& world, const SGameStory& story);
  // Holds all animations of play, the bodies' too, or lets them go on.
  void SetPlaying(const CPhysicsWorld& world, bool isPlaying);
  // The end of a game: what points at kittens or speaks leaves the screen, the rest stands still.
  void EndPlay();
  // Takes all of it off the screen.
  void Clear();

 private:
  vask::CTimer myClock;  // application time; stands with the game
  bool myIsOn = false;   // between Begin and EndPlay
  CMonsterFace myFace;
  CAboveMarkers myMarkers;
  COvenLights myOvenLights;
  CSpeech mySpeech;
  CFateRow myFates;
  CHints myHints;
};

}  // namespace brumble
