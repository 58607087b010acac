#include "game/hints.h"

#include "game/animations.h"
#include "game/gamefiles.h"
#include "game/gamerules.h"
#include "game/gfxfactory.h"

#include <algorithm>

namespace brumble {
namespace {

void ShowWhen(bool isShown, vask::CSpritePtr& hint, const char* file) {
  if (!isShown) {
    hint.Reset();
  } else if (!hint) {
    hint = CGfxFactory::GetSingletonPtr()->LoadSprite(file);
  }
}

void Centre(vask::CSprite& sprite, SVec2 place) {
  const vask::CRect<int> rect = sprite.GetRect();
  sprite.SetPosition(static_cast<int>(place.x) - rect.w / 2,
                     static_cast<int>(place.y) - rect.h / 2);
}

}  // namespace

void CHints::Update(const std::vector<SKittenView>& kittens, const SGameStory& story) {
  const bool hasServed =
      std::find(story.fates.begin(), story.fates.end(), EFate::kServed) != story.fates.end();
  if (!myIsNovice || hasServed) {
    End();
    return;
  }
  const auto hairy = std::find_if(kittens.begin(), kittens.end(), [](const SKittenView& kitten) {
    return kitten.health >= kBaldHealth;
  });
  const bool canSpin = hairy != kittens.end();
  ShowWhen(canSpin && !IsAboveScreen(*hairy), mySpin, kHintSpinFile);
  ShowWhen(canSpin, myLamps, kHintLampsFile);
  ShowWhen(story.isDoorOpen, myDoor, kHintDoorFile);
  if (mySpin) {
    Centre(*mySpin, hairy->position);
  }
}

void CHints::SetPlaying(bool isPlaying) {
  for (const vask::CSpritePtr& hint : {mySpin, myLamps, myDoor}) {
    SetAnimationPlaying(hint.Get(), isPlaying);
  }
}

void CHints::End() {
  mySpin.Reset();
  myLamps.Reset();
  myDoor.Reset();
}

}  // namespace brumble
