#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walklist.h"

namespace vask {

class CAnimatedSprite;
class CSprite;
class IExternalAnimator;

// The scheduler of everything that moves by itself: animated sprites (not owned), woken when their
// frame is due, and external animators (owned), updated every frame until they have finished.
// Updates may add, remove and delete sprites and animators.
class CAnimationUpdator : public CStaticSingleton<CAnimationUpdator> {
 public:
  CAnimationUpdator();
  ~CAnimationUpdator();
  CAnimationUpdator(const CAnimationUpdator&) = delete;
  CAnimationUpdator& operator=(const CAnimationUpdator&) = delete;

  // Advances to the time (milliseconds of the graphics task's timer).
  void Update(unsigned time);
  // The time of the last update.
  unsigned GetTime() const { return myTime; }

  // A playing sprite is held once, in the order of due times.
  void Add(CAnimatedSprite* sprite);
  void Remove(CAnimatedSprite* sprite);

  // Animators enter and leave by themselves; from then on they belong to the scheduler.
  void AddAnimator(IExternalAnimator* animator);
  void RemoveAnimator(IExternalAnimator* animator);
  // Deletes the animators that work on the sprite; the one that is being updated dies when it is
  // done.
  void DropAnimatorsOf(const CSprite* sprite);

 private:
  void UpdateAnimators(unsigned time);
  void UpdateSprites(unsigned time);
  void SortSprites();

  unsigned myTime = 0;
  CWalkList<IExternalAnimator> myAnimators;
  IExternalAnimator* myRunning = nullptr;  // the animator that is being updated
  bool myRunningDropped = false;
  CWalkList<CAnimatedSprite> mySprites;
};

}  // namespace vask
