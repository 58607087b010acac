#include "game/monsterface.h"

#include "game/gamefiles.h"
#include "game/gfxfactory.h"
#include "gfx/animation/animatedsprite.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace brumble {
namespace {

constexpr const char* kIdle = "idle";
constexpr const char* kUp = "up";
constexpr const char* kLick = "lick";
constexpr const char* kWince = "wince";

// Of an eye, in pixels of the monster's picture.
struct SEye {
  int x;  // of the pupil's left upper corner, when it looks straight ahead
  int y;
  float reach;  // how far the pupil may move
};

constexpr std::array<SEye, 2> kEyes = {{{25, 28, 4.0F}, {45, 26, 2.0F}}};

// Whether the frame of "idle" is a blink.
bool IsBlink(unsigned frame) { return frame % 2 == 1; }

bool HasShutEyes(const vask::CAnimatedSprite& monster) {
  const std::string animation = monster.GetAnimationName();
  return animation == kWince || (animation == kIdle && IsBlink(monster.GetCurrentFrame()));
}

SVec2 CentreOf(const vask::CRect<int>& rect) {
  return {static_cast<float>(rect.x) + 0.5F * static_cast<float>(rect.w),
          static_cast<float>(rect.y) + 0.5F * static_cast<float>(rect.h)};
}

// Null without kittens.
const SKittenView* Nearest(const std::vector<SKittenView>& kittens, SVec2 place) {
  const auto nearest =
      std::min_element(kittens.begin(), kittens.end(), [place](const auto& a, const auto& b) {
        return LengthSquared(a.position - place) < LengthSquared(b.position - place);
      });
  return nearest != kittens.end() ? &*nearest : nullptr;
}

// Of length 1; zero for a target at the place itself.
SVec2 DirectionTo(SVec2 target, SVec2 place) {
  const SVec2 way = target - place;
  const float length = std::sqrt(LengthSquared(way));
  return length > 0.0F ? SVec2{way.x / length, way.y / length} : SVec2{};
}

}  // namespace

void CMonsterFace::Begin(const SGameStory& story) {
  myPupils = {};
  myFates = story.fates.size();
  myDoorOpenings = story.doorOpenings;
}

void CMonsterFace::Update(vask::CSprite* monster, const std::vector<SKittenView>& kittens,
                          const SGameStory& story) {
  auto* const animated = dynamic_cast<vask::CAnimatedSprite*>(monster);
  if (animated == nullptr) {
    myPupils = {};
    return;
  }
  const SKittenView* const nearest = Nearest(kittens, CentreOf(monster->GetRect()));
  LoadPupils();
  ChooseAnimation(*animated, nearest != nullptr && IsAboveScreen(*nearest), story);
  PlacePupils(*animated, nearest);
}

// What happens once plays to its end before the monster goes back to waiting.
void CMonsterFace::ChooseAnimation(vask::CAnimatedSprite& monster, bool isKittenAbove,
                                   const SGameStory& story) {
  const bool hasBurnt = story.fates.size() > myFates && story.fates.back() == EFate::kBurnt;
  const bool hasOpened = story.doorOpenings > myDoorOpenings;
  myFates = story.fates.size();
  myDoorOpenings = story.doorOpenings;
  const std::string current = monster.GetAnimationName();
  const bool isWaiting = current == kIdle || current == kUp || !monster.IsPlaying();
  if (hasBurnt) {
    monster.PlayAnimation(kWince);
  } else if (hasOpened) {
    monster.PlayAnimation(kLick);
  } else if (isWaiting) {
    monster.PlayAnimation(isKittenAbove ? kUp : kIdle);
  }
}

void CMonsterFace::LoadPupils() {
  for (vask::CSpritePtr& pupil : myPupils) {
    if (!pupil) {
      pupil = CGfxFactory::GetSingletonPtr()->LoadSprite(kMonsterPupilFile);
    }
  }
}

void CMonsterFace::PlacePupils(const vask::CAnimatedSprite& monster, const SKittenView* target) {
  const vask::CRect<int> rect = monster.GetRect();
  const SVec2 look = target != nullptr ? DirectionTo(target->position, CentreOf(rect)) : SVec2{};
  const bool isShut = HasShutEyes(monster);
  for (std::size_t eye = 0; eye < myPupils.size(); ++eye) {
    if (!myPupils[eye]) {
      continue;
    }
    myPupils[eye]->SetVisible(!isShut);
    const SEye& place = kEyes[eye];
    myPupils[eye]->SetPosition(
        rect.x + place.x + static_cast<int>(std::lround(look.x * place.reach)),
        rect.y + place.y + static_cast<int>(std::lround(look.y * place.reach)));
  }
}

}  // namespace brumble
