#pragma once

#include "game/brumblegfxfactory.h"
#include "game/gamelogic.h"
#include "game/physics/physicshandle.h"
#include "game/picturecache.h"
#include "gfx/sprite/sprite.h"
#include "input/mouseable.h"
#include "utils/timer/timer.h"

#include <cstdint>
#include <memory>

namespace brumble {

// The game while its task runs: the world, the rules, their two clocks, and the screens before and
// after play. While a screen is shown the game does not run, even when the task is resumed.
class CBrumbleTaskImpl : public IKittenSpawner {
 public:
  class CBrumbleInGameUi;

  // Adds up the motions of the mouse; nothing reads them yet.
  class CMouseDeltaListener : public vask::CMouseableImpl {
   public:
    void OnMouseMoveRelative(int dx, int dy) override;

   private:
    std::int32_t myTotalX = 0;  // pixels
    std::int32_t myTotalY = 0;
  };

  CBrumbleTaskImpl();
  ~CBrumbleTaskImpl() override;
  CBrumbleTaskImpl(const CBrumbleTaskImpl&) = delete;
  CBrumbleTaskImpl& operator=(const CBrumbleTaskImpl&) = delete;

  void Update();
  // Deletes the current screen object, which is usually the caller.
  void StartNewGame();
  void ShowGameOver();
  void Pause();
  void Resume();
  int SpawnKitten() override;
  void PushKitten(int index, SVec2 velocity) override { myPhysics.PushKitten(index, velocity); }
  // Adds a kitten beside the ten; the rules have no record of it.
  void DropExtraKitten();

  const CPhysicsWorld& GetWorld() { return *myPhysics.GetWorld(); }
  const CGameLogic& GetGameLogic() const { return myGameLogic; }
  // Null during play.
  const CBrumbleInGameUi* GetScreen() const { return myScreen.get(); }

 private:
  void HoldPictures();
  void Connect();
  void RunPhysics();
  void RunLogic();
  void PauseClocks();
  void ResumeClocks();
  void ResetClocks();

  // Destroyed in the reverse order: the world with its bridges goes last.
  CPhysicsHandle myPhysics;
  vask::CTimer myPhysicsClock;
  unsigned myPhysicsStep = 5;  // milliseconds of the clock
  vask::CTimer myLogicClock;
  unsigned myLogicStep = 100;
  CGameLogic myGameLogic;
  CBrumbleGfxFactory myGfxFactory;
  vask::CSpritePtr myBackground;  // empty until the first game
  CMouseDeltaListener myMouseListener;
  std::unique_ptr<CBrumbleInGameUi> myScreen;
  CPictureCache myPictures;
  bool myIsPaused = false;        // the task
  vask::CSpritePtr myPausedSign;  // over everything while the task is paused, else empty
};

}  // namespace brumble
