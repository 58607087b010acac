#include "game/kittenrecord.h"

#include "game/physics/arena.h"
#include "utils/timer/timer.h"

#include <algorithm>
#include <cmath>

namespace brumble {
namespace {

bool IsOutOfReach(SVec2 position) { return position.y < kReachTop; }

}  // namespace

void CKittenRecord::MoveTo(SVec2 position, unsigned now) {
  const bool rests = IsOutOfReach(myPosition) && IsOutOfReach(position) &&
                     LengthSquared(position - myRestPlace) <= kRestRadius * kRestRadius;
  myPosition = position;
  if (!rests) {
    myRestPlace = position;
    myRestStart = now;
    myPushWait = kFirstPushWait;
  }
}

bool CKittenRecord::IsPushDue(unsigned now) const {
  return IsOutOfReach(myPosition) && vask::HasReached(now, myRestStart + myPushWait);
}

void CKittenRecord::NotePush(unsigned now) {
  myRestStart = now;
  myPushWait = kNextPushWait;
}

int CKittenRecord::PassThresholds(float health) {
  int points = 0;
  for (const float threshold : kHealthThresholds) {
    points += health <= threshold && threshold < myLastHealth ? kThresholdPoints : 0;
  }
  myLastHealth = health;
  return points;
}

bool CKittenRecord::IsSpinRunOver(unsigned now) const {
  return mySpinCount > 0 && now - myLastSpinTime > kSpinRunEnd;
}

bool CKittenRecord::IsSpinScoring(float angularVelocity, unsigned now) const {
  const unsigned pause = IsMonsterLast() ? kMonsterSpinPause : kWallSpinPause;
  return std::abs(angularVelocity) > kScoringSpin && now - myLastSpinTime > pause;
}

int CKittenRecord::CountSpin(int thresholdPoints, unsigned now) {
  myLastSpinTime = now;
  ++mySpinCount;
  const int share = thresholdPoints + kSpinPoints + (IsMonsterLast() ? kMonsterSpinPoints : 0);
  return mySpinCount * share;
}

STouchStory ReadTouches(const std::vector<int>& touches) {
  STouchStory story;
  story.monsterTouches =
      static_cast<int>(std::count(touches.begin(), touches.end(), kMonsterIndex));
  const auto lastMonster = std::find(touches.rbegin(), touches.rend(), kMonsterIndex).base();
  // `lastMonster` points just past the monster's last touch, to the front when there is none.
  story.isOneTouch =
      story.monsterTouches > 0 &&
      std::all_of(touches.begin(), lastMonster, [](int t) { return t == kMonsterIndex; });
  story.isWallBounce = std::find(lastMonster, touches.end(), kRightWallIndex) != touches.end();
  return story;
}

int WallHitPoints(float impulseSquared) {
  constexpr float kImpulseScale = 50.0F;
  constexpr float kForceScale = 10.0F;
  // Far above the force that earns the most: keeps the cube below within an int.
  constexpr float kMostForce = 1000.0F;
  const float force = std::sqrt(impulseSquared) / kImpulseScale * kForceScale;
  const int n = static_cast<int>(std::min(force, kMostForce));
  const int points = ((n / 2) * n * n / 100) * 10;
  return std::clamp(points, kLeastWallPoints, kMostWallPoints);
}

}  // namespace brumble
