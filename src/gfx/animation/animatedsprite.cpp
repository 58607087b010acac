#include "gfx/animation/animatedsprite.h"

#include "gfx/animation/animationupdator.h"
#include "gfx/sprite/spritetypes.h"
#include "utils/xml/xmlcontext.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vask {
namespace {

const CSpriteTypeRegistrar theRegistrar(kAnimatedSprite, NewSprite<CAnimatedSprite>);

// The longest wait that a comparison of wrapping times still takes for the future.
constexpr int kLongestWait = std::numeric_limits<int>::max() / 2;
constexpr double kTimeRange = 4294967296.0;  // times wrap there

}  // namespace

CAnimatedSprite::~CAnimatedSprite() {
  if (myDeathNote != nullptr) {
    *myDeathNote = true;
  }
  if (CAnimationUpdator* updator = CAnimationUpdator::PeekSingletonPtr()) {
    updator->Remove(this);
  }
}

int CAnimatedSprite::GetTypeId() const { return kAnimatedSprite.number; }

void CAnimatedSprite::Serialize(CXmlContext& xml) {
  CSprite::Serialize(xml);
  std::string current = xml.IsWriting() && myCurrentAnimation ? myCurrentAnimation->GetName() : "";
  if (xml.IsReading() || myCurrentAnimation != nullptr) {
    xml.OptionalValue("CurrentAnimation", current);
  }
  float factor = myTimeMultiply;
  bool play = myPlay;
  xml.OptionalValue("CurrentFrame", myCurrentFrame);
  xml.OptionalValue("MiniumUpdateTime", myMinimumUpdateTime);
  xml.OptionalValue("Play", play);
  xml.OptionalValue("TimeMultiply", factor);
  if (xml.IsWriting()) {
    WriteAnimations(xml);
    return;
  }
  SetTimeMultiply(factor);
  ReadAnimations(xml);
  if (play) {
    Play();
  } else {
    Stop();
  }
  if (!current.empty()) {
    PlayAnimation(current);
  }
}

// Reads the animations in their order; other elements between them are skipped.
void CAnimatedSprite::ReadAnimations(const CXmlContext& xml) {
  if (xml.GetCurrent() == nullptr) {
    return;
  }
  xml.GetCurrent()->ForEachChild("Animation", [&](CXmlElement& child) {
    auto animation = std::make_unique<CAnimation>();
    CXmlContext context(&child, CXmlContext::kReading, xml.GetFileName());
    animation->Serialize(context);
    AddAnimation(std::move(animation));
  });
}

void CAnimatedSprite::WriteAnimations(CXmlContext& xml) {
  for (const auto& animation : myAnimations) {
    xml.BeginNode("Animation");
    animation->Serialize(xml);
    xml.EndNode("Animation");
  }
}

void CAnimatedSprite::PlayAnimation(const std::string& name) {
  const bool isCurrent = myCurrentAnimation != nullptr && myCurrentAnimation->GetName() == name;
  if (!isCurrent || !myPlay) {
    CAnimation* found = FindAnimation(name);
    myCurrentAnimation = found != nullptr ? found : myCurrentAnimation;
    myCurrentFrame = 0;
    myStarted = false;
  }
  Play();
}

CAnimation* CAnimatedSprite::FindAnimation(const std::string& name) const {
  const auto found =
      std::find_if(myAnimations.begin(), myAnimations.end(),
                   [&name](const auto& animation) { return animation->GetName() == name; });
  return found == myAnimations.end() ? nullptr : found->get();
}

void CAnimatedSprite::AddAnimation(std::unique_ptr<CAnimation> animation) {
  myAnimations.push_back(std::move(animation));
}

void CAnimatedSprite::Play() {
  myPlay = true;
  CAnimationUpdator::GetSingletonPtr()->Add(this);
}

void CAnimatedSprite::Stop() {
  myPlay = false;
  if (CAnimationUpdator* updator = CAnimationUpdator::PeekSingletonPtr()) {
    updator->Remove(this);
  }
}

void CAnimatedSprite::SetTimeMultiply(float factor) {
  if (!std::isfinite(factor) || factor < 0.0F) {
    return;
  }
  myTimeMultiply = factor;
  if (myPlay) {
    Play();  // at another due time
  }
}

bool CAnimatedSprite::HasFrames() const {
  return myCurrentAnimation != nullptr && myCurrentAnimation->HasFrames();
}

int CAnimatedSprite::GetWait(unsigned now) const {
  if (!myStarted) {
    return std::numeric_limits<int>::min();
  }
  if (!HasFrames()) {
    return static_cast<int>(myLastTime + myMinimumUpdateTime - now);
  }
  const int clockWait = static_cast<int>(myCurrentAnimation->GetDueTime() - myTime);
  return static_cast<int>(myLastTime + static_cast<unsigned>(RealTime(clockWait)) - now);
}

// How much time passes on the scheduler's clock while the sprite's clock advances that much.
int CAnimatedSprite::RealTime(int clockTime) const {
  if (clockTime <= 0 || myTimeMultiply == 1.0F) {
    return clockTime;
  }
  const double real = std::ceil(clockTime / static_cast<double>(myTimeMultiply));
  return real < kLongestWait ? static_cast<int>(real) : kLongestWait;
}

void CAnimatedSprite::Tick(unsigned time) {
  AdvanceClock(time);
  if (myPlay && HasFrames()) {
    AdvanceAnimation();
  }
}

void CAnimatedSprite::AdvanceClock(unsigned time) {
  if (!myStarted) {
    myStarted = true;
    myTime = time;
    if (myCurrentAnimation != nullptr) {
      myCurrentAnimation->Start(time);
    }
  } else {
    const double passed = (time - myLastTime) * static_cast<double>(myTimeMultiply);
    myTime += static_cast<unsigned>(std::fmod(passed, kTimeRange));
  }
  myLastTime = time;
}

void CAnimatedSprite::AdvanceAnimation() {
  CAnimation& animation = *myCurrentAnimation;
  IFrame& frame = animation.Select(myCurrentFrame, myTime);
  bool hasDied = false;
  myDeathNote = &hasDied;
  const bool isOver = frame.Apply(this, myTime - animation.GetLastTick());
  if (hasDied) {
    return;
  }
  myDeathNote = nullptr;
  if (myCurrentAnimation != &animation || !myStarted) {
    return;  // the frame's sound has started another animation
  }
  const CAnimation::EStep step = animation.Step(this, isOver, myTime);
  myCurrentFrame = animation.GetCurrentFrame();
  if (step == CAnimation::EStep::kEnded) {
    Stop();
  }
}

}  // namespace vask
