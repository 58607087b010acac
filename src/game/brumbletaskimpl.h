#pragma once

#include "game/cast.h"
#include "game/demowatch.h"
#include "game/gameoverpanel.h"
#include "game/gamerecorder.h"
#include "game/picturecache.h"
#include "game/play.h"
#include "game/replayshow.h"
#include "game/titlebest.h"
#include "game/tunes.h"
#include "gfx/sprite/sprite.h"
#include "input/mouseable.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

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

  // The game that runs in this process; null without one. Of several the last one that has started.
  static CBrumbleTaskImpl* GetCurrent();
  // Records the next game into this file, which must not exist. Returns an error, or nothing.
  std::string RecordNext(const std::string& file);
  // Plays a recorded game, which leaves no trace in the next one. Returns an error, or nothing; not
  // during a game.
  std::string StartReplay(const std::string& file);
  // Ends it and shows the title.
  void StopReplay();

  const CPhysicsWorld& GetWorld() const { return myPlay.GetWorld(); }
  const CGameLogic& GetGameLogic() const { return myPlay.GetGameLogic(); }
  // Null during play.
  const CBrumbleInGameUi* GetScreen() const { return myScreen.get(); }
  // Null unless a recorded game plays.
  const CReplayShow* GetReplay() const { return myReplay.get(); }

 private:
  void HoldPictures();
  SGameResult EnterResult();
  ETune WantedTune() const;
  void Enter(EInput kind);
  void ShowPaused();
  void ShowTitle();
  void ShowPlay(bool isNovice);
  void StartDemoWhenDue();
  void UpdateReplay();
  void EndReplay();

  CPlay myPlay;
  CGameRecorder myRecorder{myPlay};
  std::unique_ptr<CReplayShow> myReplay;
  std::optional<SGameStart> myNextStart;  // after a replay, what it must not change
  CCast myCast;
  vask::CSpritePtr myBackground;  // empty until the first game
  CMouseDeltaListener myMouseListener;
  std::unique_ptr<CBrumbleInGameUi> myScreen;
  CTitleBest myTitleBest;
  CTunes myTunes;
  CDemoWatch myDemoWatch;
  bool myCanDemo = true;                    // until one could not be played
  std::unique_ptr<CGameOverPanel> myPanel;  // null but at the end of a game
  CPictureCache myPictures;
  bool myIsPaused = false;        // the task
  vask::CSpritePtr myPausedSign;  // over everything while the task is paused, else empty
};

}  // namespace brumble
