#include "gfx/animation/animationupdator.h"

#include "gfx/animation/animatedsprite.h"
#include "gfx/animation/externalanimator.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace vask {

CAnimationUpdator::CAnimationUpdator() {
  CSprite::SetDeathHook([](const CSprite* sprite) {
    if (CAnimationUpdator* updator = PeekSingletonPtr()) {
      updator->DropAnimatorsOf(sprite);
    }
  });
}

CAnimationUpdator::~CAnimationUpdator() {
  while (!myAnimators.IsEmpty()) {
    IExternalAnimator* animator = myAnimators.Front();
    myAnimators.Remove(animator);
    delete animator;
  }
}

void CAnimationUpdator::Update(unsigned time) {
  myTime = time;
  UpdateAnimators(time);
  UpdateSprites(time);
}

// An animator may add, remove and delete any animator, itself included.
void CAnimationUpdator::UpdateAnimators(unsigned time) {
  CWalkList<IExternalAnimator>::CWalk walk(myAnimators);
  while (IExternalAnimator* animator = walk.Next()) {
    myRunning = animator;
    myRunningDropped = false;
    animator->Update(time);
    if (std::exchange(myRunning, nullptr) == nullptr) {
      return;  // it has deleted itself: this frame updates no others
    }
    if (myRunningDropped || animator->IsFinished()) {
      delete animator;
    }
  }
}

// A sprite's frames may start, stop and delete any sprite: each sprite that was due when the pass
// began is ticked once, unless it has been removed meanwhile.
void CAnimationUpdator::UpdateSprites(unsigned time) {
  std::vector<CAnimatedSprite*> due;
  for (CAnimatedSprite* sprite : mySprites.Items()) {
    if (sprite->GetWait(time) > 0) {
      break;
    }
    due.push_back(sprite);
  }
  for (CAnimatedSprite* sprite : due) {
    if (mySprites.Contains(sprite)) {
      sprite->Tick(time);
    }
  }
  if (!due.empty()) {
    SortSprites();
  }
}

void CAnimationUpdator::SortSprites() {
  std::vector<CAnimatedSprite*> sprites = mySprites.Items();
  std::stable_sort(sprites.begin(), sprites.end(),
                   [now = myTime](const CAnimatedSprite* a, const CAnimatedSprite* b) {
                     return a->GetWait(now) < b->GetWait(now);
                   });
  mySprites.Clear();
  for (CAnimatedSprite* sprite : sprites) {
    mySprites.Append(sprite);
  }
}

void CAnimationUpdator::Add(CAnimatedSprite* sprite) {
  mySprites.Remove(sprite);
  const std::vector<CAnimatedSprite*>& sprites = mySprites.Items();
  const auto later =
      std::find_if(sprites.begin(), sprites.end(),
                   [now = myTime, wait = sprite->GetWait(myTime)](const CAnimatedSprite* other) {
                     return other->GetWait(now) > wait;
                   });
  mySprites.Insert(static_cast<std::size_t>(later - sprites.begin()), sprite);
}

void CAnimationUpdator::Remove(CAnimatedSprite* sprite) { mySprites.Remove(sprite); }

void CAnimationUpdator::AddAnimator(IExternalAnimator* animator) { myAnimators.Append(animator); }

void CAnimationUpdator::RemoveAnimator(IExternalAnimator* animator) {
  myAnimators.Remove(animator);
  if (animator == myRunning) {
    myRunning = nullptr;
  }
}

void CAnimationUpdator::DropAnimatorsOf(const CSprite* sprite) {
  CWalkList<IExternalAnimator>::CWalk walk(myAnimators);
  while (IExternalAnimator* animator = walk.Next()) {
    if (!animator->IsFor(sprite)) {
      continue;
    }
    if (animator == myRunning) {
      myRunningDropped = true;
    } else {
      delete animator;
    }
  }
}

}  // namespace vask
