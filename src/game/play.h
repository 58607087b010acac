#pragma once

#include "game/brumblegfxfactory.h"
#include "game/gamelogic.h"
#include "game/physics/physicshandle.h"
#include "game/replay/gamestart.h"
#include "game/replay/input.h"
#include "utils/timer/readingtimer.h"
#include "utils/timer/timer.h"

#include <cstdint>

namespace brumble {

// One game after another: the world, the rules and their clocks. What becomes of a game is a
// function of its start and its inputs. The clocks run on the readings that come with the inputs,
// and nothing else from outside reaches the rules.
//
//     CPlay play;
//     play.Start(play.NextStart(1));  // the seed; then Take() with each input that is due
class CPlay : public IKittenSpawner {
 public:
  CPlay();
  ~CPlay() override;
  CPlay(const CPlay&) = delete;
  CPlay& operator=(const CPlay&) = delete;

  // What a game that starts now would begin with. Pointer and pause are left to the caller.
  SGameStart NextStart(std::uint32_t seed) const;
  // Makes the next game begin so, without starting it: the world is empty until then.
  void SetNextStart(const SGameStart& start);
  // Starts a game at the last reading.
  void Start(const SGameStart& start);
  // Reads the clocks; their time passes, but nothing moves yet.
  void Read(const SInput& input);
  // Reads the clocks, and tells whether the input would change anything: most updates come before
  // the next step is due.
  bool IsDue(const SInput& input);
  void Take(const SInput& input);
  // Stops the clocks for good: between two games nothing moves.
  void Stop();

  // From the start of a game until it stops; also while it is paused.
  bool IsRunning() const { return myIsRunning; }
  // Whether a tick has found the end of the game.
  bool IsOver() const { return myIsOver; }
  // Whether the game has kittens that the rules don't count.
  bool HasExtraKittens() const { return myHasExtraKittens; }

  int SpawnKitten() override;
  void PushKitten(int index, SVec2 velocity) override { myPhysics.PushKitten(index, velocity); }

  const CPhysicsWorld& GetWorld() const { return *myPhysics.GetWorld(); }
  const CGameLogic& GetGameLogic() const { return myGameLogic; }

 private:
  void RunPhysics(const SInput& input);
  void RunLogic();
  void DropExtraKitten();
  void PauseClocks();
  void ResumeClocks();
  void ResetClocks();

  // Destroyed in the reverse order: the world with its bridges goes last, after the sources.
  vask::CReadingTimer myTime;     // the global clock
  vask::CReadingTimer myAppTime;  // the application timer
  CPhysicsHandle myPhysics;
  vask::CTimer myPhysicsClock{&myTime};
  unsigned myPhysicsStep = 5;  // milliseconds of the clock
  vask::CTimer myLogicClock{&myTime};
  unsigned myLogicStep = 100;
  CGameLogic myGameLogic{&myAppTime};
  CBrumbleGfxFactory myGfxFactory;
  bool myIsRunning = false;
  bool myIsOver = false;
  bool myHasExtraKittens = false;  // in this game, whose score then doesn't count
};

}  // namespace brumble
