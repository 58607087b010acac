#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walklist.h"

namespace vask {

class CAnimatedSprite;
class CSprite;
class IExternalAnimator;

// The scheduler of animations: of animated sprites (not owned), woken when their frame is due, and
// of external animators (owned), updated every frame until they have finished. Updates may add,
// remove and delete sprites and animators.
//
//     CAnimationUpdator& updator = CAnimationUpdator::GetSingleton();
//     updator.Update(time);  // once a frame
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

  // The sprites that are playing; adding one again sorts it in by its new due time.
  void Add(CAnimatedSprite* sprite);
  void Remove(CAnimatedSprite* sprite);

  // Called by the animators' constructor and destructor; the scheduler owns them in between.
  void AddAnimator(IExternalAnimator* animator);
  void RemoveAnimator(IExternalAnimator* animator);
  // Deletes the animators of the sprite; the one that is being updated is deleted after its update.
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
