#include "game/cast.h"

#include "game/animations.h"
#include "game/brumblegfx.h"
#include "game/gamerules.h"
#include "game/physics/arena.h"
#include "game/physics/physicsworld.h"
#include "utils/timer/globalapptimer.h"

namespace brumble {
namespace {

// Null for a body without one.
vask::CSprite* SpriteOf(const CPhysicsBody& body) {
  const auto* const bridge = dynamic_cast<const CBrumbleGfx*>(body.bridge.get());
  return bridge != nullptr ? bridge->GetSprite() : nullptr;
}

}  // namespace

CCast::CCast() : myClock(vask::CGlobalAppTimer::GetSingletonPtr()) {}

void CCast::Begin(const SGameStory& story, bool isNovice) {
  myIsOn = true;
  myFace.Begin(story);
  mySpeech.Begin();
  myOvenLights.Begin();
  myFates.Begin(kFatesPlace, kFatesStep, kFatesDepth);
  myHints.Begin(isNovice);
}

void CCast::Update(const CPhysicsWorld& world, const SGameStory& story) {
  if (!myIsOn) {
    return;
  }
  const std::vector<SKittenView> kittens = KittensIn(world);
  myFace.Update(SpriteOf(world.GetBodies()[kMonsterIndex]), kittens, story);
  myMarkers.Update(kittens);
  myOvenLights.Update(kittens, story);
  mySpeech.Update(kittens, myClock.GetTime());
  myFates.Update(story.fates);
  myHints.Update(kittens, story);
}

void CCast::SetPlaying(const CPhysicsWorld& world, bool isPlaying) {
  for (const CPhysicsBody& body : world.GetBodies()) {
    SetAnimationPlaying(SpriteOf(body), isPlaying);
  }
  myOvenLights.SetPlaying(isPlaying);
  myHints.SetPlaying(isPlaying);
  if (isPlaying) {
    myClock.Resume();
  } else {
    myClock.Pause();
  }
}

void CCast::EndPlay() {
  myIsOn = false;
  myMarkers.Update({});
  mySpeech.End();
  myHints.End();
}

void CCast::Clear() {
  EndPlay();
  myFace = {};
  myOvenLights = {};
  myFates = {};
}

}  // namespace brumble
