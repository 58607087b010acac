#pragma once

#include "game/cast.h"
#include "game/gameoverpanel.h"
#include "game/picturecache.h"
#include "game/play.h"
#include "game/titlebest.h"
#include "game/tunes.h"
#include "gfx/sprite/sprite.h"
#include "input/mouseable.h"

#include <cstdint>
#include <memory>

namespace brumble {

// The game while its task runs: play, what is shown of it, and the screens before and after. It is
// the door between the game and the program: whatever reaches play is an input that is made here.
// While a screen is shown the game does not run, even when the task is resumed.
class CBrumbleTaskImpl {
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
  ~CBrumbleTaskImpl();
  CBrumbleTaskImpl(const CBrumbleTaskImpl&) = delete;
  CBrumbleTaskImpl& operator=(const CBrumbleTaskImpl&) = delete;

  void Update();
  // Deletes the current screen object, which is usually the caller.
  void StartNewGame();
  void ShowGameOver();
  void Pause();
  void Resume();
  // Adds a kitten beside the ten; the rules have no record of it.
  void DropExtraKitten();

  const CPhysicsWorld& GetWorld() const { return myPlay.GetWorld(); }
  const CGameLogic& GetGameLogic() const { return myPlay.GetGameLogic(); }
  // Null during play.
  const CBrumbleInGameUi* GetScreen() const { return myScreen.get(); }

 private:
  void HoldPictures();
  SGameResult EnterResult() const;
  ETune WantedTune() const;
  void Enter(EInput kind);
  void ShowPaused();

  CPlay myPlay;
  CCast myCast;
  vask::CSpritePtr myBackground;  // empty until the first game
  CMouseDeltaListener myMouseListener;
  std::unique_ptr<CBrumbleInGameUi> myScreen;
  CTitleBest myTitleBest;
  CTunes myTunes;
  std::unique_ptr<CGameOverPanel> myPanel;  // null but at the end of a game
  CPictureCache myPictures;
  bool myIsPaused = false;        // the task
  vask::CSpritePtr myPausedSign;  // over everything while the task is paused, else empty
};

}  // namespace brumble
