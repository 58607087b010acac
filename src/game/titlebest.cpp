#include "game/titlebest.h"

#include "game/digits.h"
#include "game/gamefiles.h"
#include "game/gfxfactory.h"
#include "game/scores.h"

namespace brumble {
namespace {

constexpr SScreenPoint kCaptionPlace = {576, 492};
constexpr SScreenPoint kNumberPlace = {680, 502};
constexpr int kNumberDepth = 10;  // over the caption

}  // namespace

void CTitleBest::Show() {
  const int best = BestScore();
  if (best <= 0) {
    return;
  }
  myCaption = CGfxFactory::GetSingletonPtr()->LoadSprite(kTitleBestFile);
  if (myCaption) {
    myCaption->SetPosition(kCaptionPlace.x, kCaptionPlace.y);
  }
  myNumber = ShowNumber(best, kNumberPlace, kNumberDepth);
}

void CTitleBest::Hide() {
  myCaption.Reset();
  myNumber.Reset();
}

}  // namespace brumble
