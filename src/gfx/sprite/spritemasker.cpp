#include "gfx/sprite/spritemasker.h"

#include "gfx/sprite/sprite.h"

#include <algorithm>
#include <cmath>

namespace vask {
namespace {

// Far more than any screen, and harmless to add to a position.
constexpr float kFarthest = 1.0e6F;

// A fraction of the distance. An expression may yield any number, also NaN.
int PartOf(int way, float value) {
  const float part = value * static_cast<float>(way);
  return std::isnan(part) ? 0 : static_cast<int>(std::clamp(part, -kFarthest, kFarthest));
}

}  // namespace

CSpriteMoveToUpdator::CSpriteMoveToUpdator(CSprite* sprite, int targetX, int targetY)
    : ISpriteMasker(sprite),
      myTargetX(targetX),
      myTargetY(targetY),
      myStartX(sprite == nullptr ? 0 : sprite->GetX()),
      myStartY(sprite == nullptr ? 0 : sprite->GetY()) {}

void CSpriteMoveToUpdator::Apply(float value) {
  if (mySprite != nullptr) {
    mySprite->SetPosition(myStartX + PartOf(myTargetX - myStartX, value),
                          myStartY + PartOf(myTargetY - myStartY, value));
  }
}

CSpriteSetAlphaUpdator::CSpriteSetAlphaUpdator(CSprite* sprite, std::uint8_t targetAlpha, int step)
    : ISpriteMasker(sprite),
      myTargetAlpha(targetAlpha),
      myStartAlpha(static_cast<std::uint8_t>(sprite == nullptr ? 0 : sprite->GetAlpha())),
      myStep(step) {}

void CSpriteSetAlphaUpdator::Apply(float value) {
  if (++myCalls < myStep) {
    return;
  }
  myCalls = 0;
  if (mySprite != nullptr) {
    mySprite->SetAlpha(
        static_cast<std::uint8_t>(myStartAlpha + PartOf(myTargetAlpha - myStartAlpha, value)));
  }
}

}  // namespace vask
