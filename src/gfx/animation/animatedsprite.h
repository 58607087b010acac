#pragma once

#include "gfx/animation/animation.h"
#include "gfx/sprite/sprite.h"

#include <memory>
#include <string>
#include <vector>

namespace vask {

// A sprite with named animations. While it plays, the scheduler (CAnimationUpdator) wakes it
// whenever its current frame is due; without a current animation, at a fixed interval.
//
//     const CSpritePtr flame(CSpriteFactory::GetSingletonPtr()->Load("flame.xml"));
//     flame->PlayAnimation("burn");
class CAnimatedSprite : public CSprite {
 public:
  CAnimatedSprite() = default;
  ~CAnimatedSprite() override;

  int GetTypeId() const override;
  void Serialize(CXmlContext& xml) override;
  // Plays the first animation of that name from its start; does nothing when it is already playing.
  // An unknown name restarts the current animation.
  void PlayAnimation(const std::string& name) override;

  void AddAnimation(std::unique_ptr<CAnimation> animation);
  // Enters and leaves the scheduler.
  void Play();
  void Stop();
  bool IsPlaying() const { return myPlay; }
  // The frame of the current animation.
  unsigned GetCurrentFrame() const { return myCurrentFrame; }
  // The speed of the sprite's clock relative to the scheduler's: 2 is twice as fast, 0 stops it.
  // Negative and infinite factors and NaN are ignored.
  void SetTimeMultiply(float factor);

  // For the scheduler. Milliseconds from `now` until the sprite is due; not above 0 when it is.
  int GetWait(unsigned now) const;
  // Advances the clock, then the animation.
  void Tick(unsigned time);

 private:
  CAnimation* FindAnimation(const std::string& name) const;
  bool HasFrames() const;
  void AdvanceClock(unsigned time);
  void AdvanceAnimation();
  int RealTime(int clockTime) const;
  void ReadAnimations(const CXmlContext& xml);
  void WriteAnimations(CXmlContext& xml);

  std::vector<std::unique_ptr<CAnimation>> myAnimations;
  CAnimation* myCurrentAnimation = nullptr;
  unsigned myCurrentFrame = 0;
  bool myStarted = false;   // whether the clock runs
  unsigned myTime = 0;      // the sprite's clock, in its own milliseconds
  unsigned myLastTime = 0;  // the scheduler's time at the last tick
  unsigned myMinimumUpdateTime = 250;
  bool myPlay = false;
  float myTimeMultiply = 1.0F;
  bool* myDeathNote = nullptr;  // set when the sprite dies while a frame of it is being applied
};

}  // namespace vask
