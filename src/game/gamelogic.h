#pragma once

#include "game/effects.h"
#include "game/kittenrecord.h"
#include "game/physics/gamelogicreceiver.h"
#include "game/scoreboard.h"
#include "gfx/sprite/sprite.h"
#include "utils/timer/timer.h"

#include <map>
#include <memory>
#include <string>

namespace brumble {

// Adds kittens to the world and pushes them; implemented by the game task.
class IKittenSpawner {
 public:
  virtual ~IKittenSpawner() = default;
  // Returns the new body's index.
  virtual int SpawnKitten() = 0;
  // Replaces the velocity of the body `index`, in world units per second.
  virtual void PushKitten(int index, SVec2 velocity) = 0;
};

// The rules. They drop the kittens, are told by the physics and the bridges what happens to them,
// and turn that into points: at stake while the kitten is in play, banked when it goes into the
// oven, lost when it falls into the fire. A body without a record scores nothing. They also work
// without pictures and sounds.
class CGameLogic : public IGameLogicReceiver {
 public:
  // The clock's source is not owned and must outlive the rules.
  explicit CGameLogic(vask::CTimer* source);
  // On the application timer.
  CGameLogic();
  ~CGameLogic() override;
  CGameLogic(const CGameLogic&) = delete;
  CGameLogic& operator=(const CGameLogic&) = delete;

  // Not owned; with null no kittens come.
  void SetOwner(IKittenSpawner* owner) { myOwner = owner; }

  void NewGame();
  // Every 100 ms.
  void Tick();
  // Stops the rules' clock: a pause neither ends a run of spins nor brings the next kitten nearer.
  void PauseClock() { myClock.Pause(); }
  void ResumeClock() { myClock.Resume(); }
  bool IsGameOver() const;
  // Multiplies `points` in place when a kitten (any index but 0) earns them beside others in play.
  void AddScore(int kittenIndex, int& points);
  // Returns the points awarded: the bonus's own, else `fallbackPoints`.
  int AwardBonus(int number, SScreenPoint position, int fallbackPoints);
  static void ShowSign(const std::string& file) { brumble::ShowSign(file); }
  static void ShowEffect(const std::string& file, SScreenPoint position, SScreenPoint target = {},
                         const std::string& expression = {}) {
    brumble::ShowEffect(file, position, target, expression);
  }
  static void PlayEffect(const std::string& file) { brumble::PlayEffect(file); }

  void OnDoorOpened() override;
  void OnDoorClosed() override;
  void OnKittenInOven(int index) override;
  void OnKittenInHell(int index) override;

  // Each contact reports from both sides. `position` is the world position of the body `myIndex`.
  void OnKittenImpact(int myIndex, float impulseSquared, SVec2 position, int otherIndex,
                      float myHealth);
  void OnKittenSpin(int index, SVec2 position, float angularVelocity, float health);
  void SetKittenPosition(int index, SVec2 position);
  void SwapKittenRecords(int oldIndex, int newIndex);

  // Null for a body without a record.
  const CKittenRecord* GetRecord(int index) const;
  const CScoreBoard& GetScoreBoard() const { return myScoreBoard; }
  const CScoreBoard& GetKittensLeftBoard() const { return myKittensLeftBoard; }
  const CScoreBoard& GetStakeBoard() const { return myStakeBoard; }
  vask::CSprite* GetOven() const { return myOven.Get(); }
  const SGameStory& GetStory() const { return myStory; }

 private:
  void LoadSigns();
  void SpawnKitten();
  void PushIfStuck(int index, CKittenRecord& record);
  void RemoveKitten(int index, EFate fate);
  CKittenRecord* FindRecord(int index);
  void ShowPoints(int points, SVec2 position);
  void MoveDoor(SScreenPoint target, const char* animation);
  void NoteTouch(CKittenRecord& record, int toucher, SVec2 position);
  void PlayHitSound(int toucher, float impulseSquared);
  void ScoreWallHit(CKittenRecord& record, int index, float impulseSquared, SVec2 position,
                    float health);
  int ScoreSpin(CKittenRecord& record, int thresholdPoints, unsigned now);
  void AwardSpinner(CKittenRecord& record);
  void BankKitten(CKittenRecord& record);

  IKittenSpawner* myOwner = nullptr;
  CScoreBoard myScoreBoard;  // banked points
  CScoreBoard myKittensLeftBoard;
  CScoreBoard myStakeBoard;  // points of the kittens in play
  vask::CSpritePtr myScoreSign;
  vask::CSpritePtr myKittensLeftSign;
  vask::CSpritePtr myKittenSigns;
  vask::CSpritePtr myOven;
  vask::CTimer myClock;  // application time, from the new game on
  std::map<int, std::unique_ptr<CKittenRecord>> myKittens;  // by body index; null: gone
  SGameStory myStory;
};

}  // namespace brumble
