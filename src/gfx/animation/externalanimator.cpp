#include "gfx/animation/externalanimator.h"

#include "gfx/animation/animationupdator.h"
#include "gfx/sprite/spritemasker.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <limits>
#include <sstream>
#include <utility>

namespace vask {
namespace {

constexpr double kTimeRange = 4294967296.0;  // times wrap there
// The smallest number that a stream prints without an exponent, which the calculator cannot read.
constexpr float kSmallestPlain = 0.0001F;
constexpr int kDigitsOfSmall = 12;  // the smallest fraction is 1 ms of 2^32
// Slower by more than that has no scale that a float could hold.
constexpr float kSmallestFactor = std::numeric_limits<float>::min();

unsigned WrapToTime(double milliseconds) {
  const double rest = std::fmod(std::floor(milliseconds + 0.5), kTimeRange);
  return static_cast<unsigned>(static_cast<long long>(rest < 0 ? rest + kTimeRange : rest));
}

// A running animation never becomes one without a duration, which would not end.
unsigned ScaleDuration(unsigned duration, double scale) {
  const double scaled = std::floor(duration * scale + 0.5);
  return duration == 0
             ? 0
             : static_cast<unsigned>(std::clamp(
                   scaled, 1.0, static_cast<double>(std::numeric_limits<unsigned>::max())));
}

std::string FractionText(float fraction) {
  std::ostringstream text;
  if (fraction < kSmallestPlain) {
    text << std::fixed << std::setprecision(kDigitsOfSmall);
  }
  text << fraction;
  return text.str();
}

std::string ReplaceTime(const std::string& expression, const std::string& text) {
  std::string replaced;
  for (const char c : expression) {
    if (c == 't') {
      replaced += text;
    } else {
      replaced += c;
    }
  }
  return replaced;
}

}  // namespace

IExternalAnimator::IExternalAnimator(CSprite* sprite) : mySprite(sprite) {
  CAnimationUpdator::GetSingletonPtr()->AddAnimator(this);
}

IExternalAnimator::~IExternalAnimator() {
  if (CAnimationUpdator* updator = CAnimationUpdator::PeekSingletonPtr()) {
    updator->RemoveAnimator(this);
  }
}

bool IExternalAnimator::IsFor(const CSprite* sprite) const { return mySprite == sprite; }

bool IExternalAnimator::IsFinished() const { return myFinished; }

void IExternalAnimator::SetFinished(bool finished) { myFinished = finished; }

void IExternalAnimator::Pause() {}

void IExternalAnimator::Resume() {}

void IExternalAnimator::SetTimeMultiplier(float) {}

CExternalAnimator::CExternalAnimator(ISpriteMasker* masker, unsigned duration,
                                     std::string expression, bool clamp)
    : IExternalAnimator(masker->GetSprite()),
      myMasker(masker),
      myStartTime(CAnimationUpdator::GetSingletonPtr()->GetTime()),
      myDuration(duration),
      myClamp(clamp),
      myExpression(std::move(expression)),
      myLastTime(myStartTime) {}

CExternalAnimator::~CExternalAnimator() = default;

void CExternalAnimator::Update(unsigned time) {
  const unsigned passed = time - std::exchange(myLastTime, time);
  if (myPaused || myDuration == 0) {
    myStartTime += passed;
    return;
  }
  float fraction = static_cast<float>(time - myStartTime) / static_cast<float>(myDuration);
  if (fraction >= 1.0F) {
    fraction = 1.0F;
    SetFinished(true);
  }
  Apply(fraction);
}

void CExternalAnimator::Apply(float fraction) {
  float value = fraction;
  if (!myExpression.empty()) {
    value = myCalculator.Calculate(ReplaceTime(myExpression, FractionText(fraction)));
    value = myClamp ? std::clamp(value, 0.0F, 1.0F) : value;
  }
  myMasker->Apply(value);
}

void CExternalAnimator::Pause() { myPaused = true; }

void CExternalAnimator::Resume() { myPaused = false; }

void CExternalAnimator::SetTimeMultiplier(float factor) {
  if (!(factor >= kSmallestFactor) || !std::isfinite(factor)) {
    return;
  }
  if (myTimeScale != 1.0F) {
    ScaleTime(1.0 / static_cast<double>(std::exchange(myTimeScale, 1.0F)));
  }
  if (factor != 1.0F) {
    myTimeScale = 1.0F / factor;
    ScaleTime(myTimeScale);
  }
}

// Keeps the fraction at the last update as it is.
void CExternalAnimator::ScaleTime(double scale) {
  const unsigned passed = myLastTime - myStartTime;
  myDuration = ScaleDuration(myDuration, scale);
  myStartTime = WrapToTime(static_cast<double>(myLastTime) - scale * passed);
}

}  // namespace vask
