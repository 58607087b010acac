#include "game/gamelogic.h"

#include "game/bonustable.h"
#include "game/gamefiles.h"
#include "game/gamestate.h"
#include "game/gfxfactory.h"
#include "game/physics/arena.h"
#include "game/physics/physicsworld.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/animation/externalanimator.h"
#include "gfx/sprite/spritemasker.h"
#include "platform/random.h"
#include "utils/log/log.h"
#include "utils/timer/globalapptimer.h"

#include <cmath>
#include <utility>

namespace brumble {
namespace {

// The floating number of a gain: "+500".
std::string GainText(int points) { return std::string("+").append(std::to_string(points)); }

// A body without an index is a kitten that has just been added.
bool IsKitten(int index) { return index >= kFirstKittenIndex || index < 0; }

void Place(CScoreBoard& board, SScreenPoint place, int value) {
  board.SetPosition(place.x, place.y);
  board.Set(value);
}

void LogSpinCount(const CKittenRecord& record) {
  vask::Log() << "kitten_spin_count: " << record.mySpinCount << "\n";
}

bool IsLongShot(const CKittenRecord& record) {
  return LengthSquared(record.myPosition - record.myTouchPosition) >= kLongShotSquared;
}

const char* WallHitEffect(int points, float health) {
  if (health >= 0.0F) {
    return kLoseHairFile;
  }
  return points < kBigHitPoints ? kHitSmallFile : kHitBigFile;
}

}  // namespace

CGameLogic::CGameLogic(vask::CTimer* source) : myClock(source) { NewGame(); }

CGameLogic::CGameLogic() : CGameLogic(vask::CGlobalAppTimer::GetSingletonPtr()) {}

CGameLogic::~CGameLogic() = default;

void CGameLogic::NewGame() {
  SGameState& state = GameState();
  state.kittensLeft = kKittensPerGame;
  state.isGameOver = false;
  LoadSigns();
  Place(myScoreBoard, kScorePlace, 0);
  Place(myStakeBoard, kStakePlace, 0);
  myClock.Reset();
  state.stake = 0;
  myKittens.clear();
  myStory = {};
  myStory.isDoorOpen = CPhysicsWorld::IsDoorOpen();
  state.kittensInPlay = 0;
  state.lastRemoval = myClock.GetTime();
  state.lastHitSound = 0;
  Place(myKittensLeftBoard, kKittensLeftPlace, kKittensPerGame);
}

void CGameLogic::LoadSigns() {
  const CGfxFactory& sprites = *CGfxFactory::GetSingletonPtr();
  myScoreSign = sprites.LoadSprite(kScoreSignFile);
  myOven = sprites.LoadSprite(kOvenFile);
  myKittenSigns = sprites.LoadSprite(kKittenSignsFile);
  myKittensLeftSign = sprites.LoadSprite(kKittensLeftFile);
}

void CGameLogic::Tick() {
  for (const auto& [index, record] : myKittens) {
    if (record != nullptr) {
      record->myTouchedThisTick = false;
      PushIfStuck(index, *record);
    }
  }
  const SGameState& state = GameState();
  if (state.kittensInPlay < 1 && myClock.GetTime() - state.lastRemoval > kSpawnPause) {
    SpawnKitten();
  }
}

bool CGameLogic::IsGameOver() const { return GameState().isGameOver; }

void CGameLogic::SpawnKitten() {
  SGameState& state = GameState();
  if (state.kittensLeft < 1 || myOwner == nullptr) {
    return;
  }
  --state.kittensLeft;
  const int index = myOwner->SpawnKitten();
  ++state.kittensInPlay;
  myKittensLeftBoard.Set(state.kittensLeft);
  myKittens[index] = std::make_unique<CKittenRecord>();
}

void CGameLogic::PushIfStuck(int index, CKittenRecord& record) {
  const unsigned now = myClock.GetTime();
  if (myOwner != nullptr && record.IsPushDue(now)) {
    record.NotePush(now);
    myOwner->PushKitten(index, kPushVelocity);
  }
}

// A body without a record was never counted as in play, so its end is not counted either.
void CGameLogic::RemoveKitten(int index, EFate fate) {
  const CKittenRecord* const record = FindRecord(index);
  if (record == nullptr) {
    return;
  }
  SGameState& state = GameState();
  state.stake -= record->myScore;
  myStory.fates.push_back(fate);
  myKittens[index].reset();
  state.lastRemoval = myClock.GetTime();
  --state.kittensInPlay;
  myStakeBoard.Set(state.stake);
  if (state.kittensLeft < 1 && state.kittensInPlay < 1) {
    state.isGameOver = true;
  }
}

void CGameLogic::AddScore(int kittenIndex, int& points) {
  SGameState& state = GameState();
  if (kittenIndex != 0 && state.kittensInPlay > 0) {
    points *= state.kittensInPlay;
  }
  myStakeBoard.Add(points);
  state.stake += points;
  if (CKittenRecord* const record = FindRecord(kittenIndex)) {
    record->myScore += points;
  }
}

int CGameLogic::AwardBonus(int number, SScreenPoint position, int fallbackPoints) {
  vask::Log() << "PlayEffect: " << number << "\n";
  const SBonus bonus = FindBonus(number);
  int points = bonus.points != 0 ? bonus.points : fallbackPoints;
  if (points > 0) {
    AddScore(0, points);
    CScoreBoard::ShowFloatingText(position, GainText(points));
  }
  if (bonus.signFile != nullptr) {
    ShowSign(bonus.signFile);
  }
  return points > 0 ? points : 0;
}

void CGameLogic::OnDoorOpened() {
  ++myStory.doorOpenings;
  myStory.isDoorOpen = true;
  MoveDoor(kDoorOpenPlace, "open");
}

void CGameLogic::OnDoorClosed() {
  myStory.isDoorOpen = false;
  MoveDoor(kDoorShutPlace, "shut");
}

// The older movement is dropped: two at once would move the door back and forth.
void CGameLogic::MoveDoor(SScreenPoint target, const char* animation) {
  vask::CSprite* const oven = myOven.Get();
  if (oven == nullptr) {
    return;
  }
  vask::CAnimationUpdator::GetSingletonPtr()->DropAnimatorsOf(oven);
  new vask::CExternalAnimator(new vask::CSpriteMoveToUpdator(oven, target.x, target.y), kDoorTime,
                              "", false);
  if (AreEffectsShown()) {
    oven->PlayAnimation(animation);  // which is the sound
  }
}

void CGameLogic::OnKittenInOven(int index) {
  ShowEffect(kOvenBurningFile, {});
  PlayEffect(kBurnSound);
  if (CKittenRecord* const record = FindRecord(index)) {
    BankKitten(*record);
  }
  RemoveKitten(index, EFate::kServed);
}

void CGameLogic::BankKitten(CKittenRecord& record) {
  vask::Log() << "kitten_damage_bonus: " << record.myDamageBonus << "\n";
  int sum = 0;
  SScreenPoint place = kOvenTextPlace;
  const auto award = [&](EBonus bonus, int fallbackPoints = 0) {
    sum += AwardBonus(bonus, place, fallbackPoints);
    place.y += kOvenTextLine;
  };
  award(kGrilledKitten, record.myDamageBonus + kGrillPoints);
  record.myEarnings.oven += sum;
  if (record.myDamageBonus > kBashingDamage) {
    award(kBashing);
  }
  if (IsLongShot(record)) {
    award(kLongShot);
  }
  const STouchStory story = ReadTouches(record.myTouches);
  vask::Log() << "brum_touch_count: " << story.monsterTouches << "\n";
  if (story.isOneTouch) {
    award(kOneTouch);
  }
  if (story.isWallBounce) {
    award(kWallBounce);
  }
  record.myEarnings.bonuses += sum - record.myEarnings.oven;
  record.myScore += sum;
  myStory.banked += record.myEarnings;
  myScoreBoard.Add(record.myScore);
}

void CGameLogic::OnKittenInHell(int index) {
  if (const CKittenRecord* const record = FindRecord(index)) {
    ShowEffect(kHellfireFile, {ToScreenPixel(record->myPosition).x, kHellfireY});
    PlayEffect(kBurnSound);
  }
  RemoveKitten(index, EFate::kBurnt);
}

void CGameLogic::OnKittenImpact(int myIndex, float impulseSquared, SVec2 position, int otherIndex,
                                float myHealth) {
  const bool isMine = IsKitten(myIndex);
  if (isMine == IsKitten(otherIndex)) {
    return;
  }
  const int kitten = isMine ? myIndex : otherIndex;
  const int toucher = isMine ? otherIndex : myIndex;
  CKittenRecord* const record = FindRecord(kitten);
  if (record == nullptr) {
    return;
  }
  NoteTouch(*record, toucher, position);
  PlayHitSound(toucher, impulseSquared);
  if (isMine && toucher != kMonsterIndex && impulseSquared > kDamagingImpulse &&
      !record->myTouchedThisTick) {
    ScoreWallHit(*record, kitten, impulseSquared, position, myHealth);
  }
}

void CGameLogic::NoteTouch(CKittenRecord& record, int toucher, SVec2 position) {
  if (toucher == kMonsterIndex) {
    record.myTouchedThisTick = true;
    record.myTouchPosition = position;
  }
  record.myLastToucher = toucher;
  record.myTouches.push_back(toucher);
}

void CGameLogic::PlayHitSound(int toucher, float impulseSquared) {
  SGameState& state = GameState();
  const unsigned now = myClock.GetTime();
  if (toucher == kMonsterIndex || !(impulseSquared > kAudibleImpulse) ||
      now - state.lastHitSound <= kHitSoundPause) {
    return;
  }
  state.lastHitSound = now;
  const int number = 1 + vask::platform::Rand() % kHitSounds;
  PlayEffect(kHitSoundStart + std::to_string(number) + kHitSoundEnd);
}

void CGameLogic::ScoreWallHit(CKittenRecord& record, int index, float impulseSquared,
                              SVec2 position, float health) {
  int points = WallHitPoints(impulseSquared);
  AddScore(index, points);
  ShowPoints(points, position);
  record.myDamageBonus += points;
  record.myEarnings.walls += points;
  ShowEffect(WallHitEffect(points, health), ToScreenPixel(record.myPosition));
}

void CGameLogic::OnKittenSpin(int index, SVec2 position, float angularVelocity, float health) {
  CKittenRecord* const record = IsKitten(index) ? FindRecord(index) : nullptr;
  if (record == nullptr) {
    return;
  }
  const unsigned now = myClock.GetTime();
  int points = record->PassThresholds(health);
  if (record->IsSpinRunOver(now)) {
    record->mySpinCount = 0;
    LogSpinCount(*record);
  }
  if (record->IsSpinScoring(angularVelocity, now)) {
    points = ScoreSpin(*record, points, now);
  }
  if (points <= 0) {
    return;
  }
  AddScore(index, points);
  record->myEarnings.spins += points;
  ShowPoints(points, position);
  if (health > 0.0F) {
    ShowEffect(kLoseHairFile, ToScreenPixel(record->myPosition));
  }
}

int CGameLogic::ScoreSpin(CKittenRecord& record, int thresholdPoints, unsigned now) {
  const int points = record.CountSpin(thresholdPoints, now);
  if (record.mySpinCount % kSpinsPerBonus == 0) {
    AwardSpinner(record);
  }
  LogSpinCount(record);
  return points;
}

void CGameLogic::AwardSpinner(CKittenRecord& record) {
  EBonus bonus = kExpertSpinner;
  if (record.IsMonsterLast()) {
    bonus = record.mySpinCount < kGuruSpins ? kMasterSpinner : kGuruSpinner;
  }
  const int points = AwardBonus(bonus, ToScreenPixel(record.myPosition), record.mySpinCount);
  record.myScore += points;
  record.myEarnings.bonuses += points;
  if (bonus == kExpertSpinner) {
    record.mySpinCount = 0;
  }
}

void CGameLogic::ShowPoints(int points, SVec2 position) {
  CScoreBoard::ShowFloatingText(ToScreenPixel(position), GainText(points) + "\n");
}

void CGameLogic::SetKittenPosition(int index, SVec2 position) {
  if (CKittenRecord* const record = FindRecord(index)) {
    record->MoveTo(position, myClock.GetTime());
  }
}

void CGameLogic::SwapKittenRecords(int oldIndex, int newIndex) {
  std::swap(myKittens[oldIndex], myKittens[newIndex]);
}

CKittenRecord* CGameLogic::FindRecord(int index) {
  const auto found = myKittens.find(index);
  return found != myKittens.end() ? found->second.get() : nullptr;
}

const CKittenRecord* CGameLogic::GetRecord(int index) const {
  const auto found = myKittens.find(index);
  return found != myKittens.end() ? found->second.get() : nullptr;
}

}  // namespace brumble
