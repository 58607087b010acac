#include "game/pilot.h"

#include "game/physics/arena.h"
#include "game/physics/physicshandle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace brumble {
namespace {

constexpr SVec2 kMiddle = {0.0F, 20.0F};
// A kitten that nothing has ended for so long is left to fall, so that every game ends.
constexpr unsigned kPatience = 25000;
constexpr unsigned kRound = 30000;
constexpr SVec2 kAside = {46.0F, 44.0F};
constexpr SVec2 kPressFrom = {3.0F, 5.5F};  // the lower right of the kitten

constexpr std::array<std::string_view, 7> kNames = {"idle",    "sweeper", "chaser",  "bouncer",
                                                    "spinner", "presser", "fidgeter"};

SScreenPoint PointerFor(SVec2 place) {
  const SVec2 pointer = CPhysicsHandle::PointerFor(place);
  return {std::clamp(static_cast<int>(pointer.x), 0, kScreenWidth - 1),
          std::clamp(static_cast<int>(pointer.y), 0, kScreenHeight - 1)};
}

SVec2 OnRound(unsigned time) {
  const float angle = static_cast<float>(time % 2600) * (6.283F / 2600.0F);
  const float drift = static_cast<float>(time % 7000) * (6.283F / 7000.0F);
  return {40.0F * std::cos(angle), 15.0F + 25.0F * std::sin(drift)};
}

// The place where the kitten will be shortly.
SVec2 Ahead(const CPhysicsBody& kitten) {
  constexpr float kLead = 0.18F;  // seconds of the world
  const SVec2 fall = {0.0F, 0.5F * kGravity * kLead * kLead};
  return SVec2{kitten.x + kitten.vx * kLead, kitten.y + kitten.vy * kLead} + fall;
}

}  // namespace

bool CPilot::FindManner(std::string_view name, EManner& manner) {
  const auto found = std::find(kNames.begin(), kNames.end(), name);
  if (found == kNames.end()) {
    return false;
  }
  manner = static_cast<EManner>(found - kNames.begin());
  return true;
}

SScreenPoint CPilot::PointerAt(const CPhysicsWorld& world, unsigned time) {
  return PointerFor(time % kRound < kPatience ? Wanted(world, time) : kAside);
}

SVec2 CPilot::Wanted(const CPhysicsWorld& world, unsigned time) {
  if (myManner == EManner::kIdle) {
    return kMiddle;
  }
  if (myManner == EManner::kSweeper) {
    return OnRound(time);
  }
  if (myManner == EManner::kFidgeter) {
    if (time >= myNextJump) {
      myNextJump = time + static_cast<unsigned>(Noise(400));
      myPlace = {static_cast<float>(Noise(110) - 55), static_cast<float>(Noise(80) - 35)};
    }
    return myPlace;
  }
  if (world.GetBodyCount() <= kFirstKittenIndex) {
    return kMiddle;
  }
  return Serve(world, Ahead(world.GetBodies()[kFirstKittenIndex]), time);
}

SVec2 CPilot::Serve(const CPhysicsWorld& world, SVec2 kitten, unsigned time) {
  switch (myManner) {
    case EManner::kBouncer:
      return {kitten.x, std::max(kitten.y + 6.0F, 10.0F)};
    case EManner::kSpinner:
      return {kitten.x + (time / 700 % 2 == 0 ? 4.5F : -4.5F), kitten.y + 3.0F};
    case EManner::kPresser:
      return kitten + kPressFrom;
    default:
      return world.GetBodies()[kMonsterIndex].y < kitten.y ? SVec2{kitten.x + 12.0F, 45.0F}
                                                           : kitten;
  }
}

int CPilot::Noise(int range) {
  myNoise = myNoise * 1664525U + 1013904223U;
  return static_cast<int>(myNoise >> 8U) % range;
}

}  // namespace brumble
