#include "game/ovenlights.h"

#include "game/animations.h"
#include "game/effects.h"
#include "game/gamefiles.h"
#include "game/gamerules.h"
#include "game/gfxfactory.h"

#include <algorithm>
#include <string>

namespace brumble {
namespace {

constexpr int kLamps = 4;

// All for a bald kitten, none for one that has lost less than a quarter of its health.
int LampsFor(const std::vector<SKittenView>& kittens) {
  const auto worst = std::min_element(
      kittens.begin(), kittens.end(),
      [](const SKittenView& a, const SKittenView& b) { return a.health < b.health; });
  if (worst == kittens.end()) {
    return 0;
  }
  const float lost = 1.0F - std::max(worst->health, 0.0F) / kFullHealth;
  const int lamps = static_cast<int>(lost * kLamps);
  return worst->health < kBaldHealth ? kLamps : std::clamp(lamps, 0, kLamps - 1);
}

}  // namespace

void COvenLights::Begin() {
  myLamps = CGfxFactory::GetSingletonPtr()->LoadSprite(kLampsFile);
  myLit = 0;
}

void COvenLights::Update(const std::vector<SKittenView>& kittens, const SGameStory& story) {
  BurnWhen(story.isDoorOpen && AreEffectsShown());
  Light(LampsFor(kittens));
}

void COvenLights::BurnWhen(bool burns) {
  if (!burns) {
    myBreath.Reset();
  } else if (!myBreath) {
    myBreath = CGfxFactory::GetSingletonPtr()->LoadSprite(kOvenBreathFile);
  }
}

void COvenLights::Light(int lamps) {
  if (myLamps && lamps != myLit) {
    myLamps->PlayAnimation("lit_" + std::to_string(lamps));
  }
  myLit = lamps;
}

void COvenLights::SetPlaying(bool isPlaying) { SetAnimationPlaying(myBreath.Get(), isPlaying); }

}  // namespace brumble
