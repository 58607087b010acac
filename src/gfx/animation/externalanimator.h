#pragma once

#include "utils/calculator/calculator.h"

#include <memory>
#include <string>

namespace vask {

class CSprite;
class ISpriteMasker;

// Drives one property of one sprite over time. Make it with `new`: it registers with the scheduler
// (CAnimationUpdator), which updates it each frame and deletes it when it has finished or its
// sprite has died.
class IExternalAnimator {
 public:
  explicit IExternalAnimator(CSprite* sprite);
  IExternalAnimator(const IExternalAnimator&) = delete;
  IExternalAnimator& operator=(const IExternalAnimator&) = delete;

  virtual ~IExternalAnimator();
  // Advances to the scheduler's time, in milliseconds.
  virtual void Update(unsigned time) = 0;
  virtual bool IsFor(const CSprite* sprite) const;
  virtual bool IsFinished() const;
  virtual void SetFinished(bool finished);
  virtual void Pause();
  virtual void Resume();
  // Changes the speed: 2 is twice as fast.
  virtual void SetTimeMultiplier(float factor);

 protected:
  CSprite* mySprite;
  bool myFinished = false;
};

// Runs from 0 to 1 over a duration and passes the value, or that of an expression in `t`, to a
// masker.
//
//     auto* move = new CSpriteMoveToUpdator(&sprite, 400, 125);
//     new CExternalAnimator(move, 2000, "sin(t*3.14)", true);
class CExternalAnimator : public IExternalAnimator {
 public:
  // Owns the masker. The duration is in milliseconds; an empty expression is `t` itself; `clamp`
  // limits the value of the expression to 0 to 1. Starts at the scheduler's current time.
  CExternalAnimator(ISpriteMasker* masker, unsigned duration, std::string expression, bool clamp);
  ~CExternalAnimator() override;

  void Update(unsigned time) override;
  void Pause() override;
  void Resume() override;
  void SetTimeMultiplier(float factor) override;
  virtual void Apply(float fraction);

 private:
  void ScaleTime(double scale);

  std::unique_ptr<ISpriteMasker> myMasker;
  unsigned myStartTime;
  unsigned myDuration;
  bool myClamp;
  std::string myExpression;
  CCalculator<float> myCalculator;
  unsigned myLastTime;
  bool myPaused = false;
  float myTimeScale = 1.0F;
};

}  // namespace vask
