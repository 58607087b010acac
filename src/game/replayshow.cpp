#include "game/replayshow.h"

#include "game/effects.h"
#include "game/gamefiles.h"
#include "game/gfxfactory.h"
#include "game/physics/screentransform.h"
#include "gfx/sprite/screenlayer.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"
#include "input/keyboard.h"
#include "input/keynames.h"
#include "utils/timer/globalapptimer.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

namespace brumble {
namespace {

constexpr int kFewestDoublings = -3;
constexpr int kMostDoublings = 6;
constexpr int kMostDoublingsWithEffects = 1;
constexpr unsigned kRestUnits = 1U << 3U;  // as many as the slowest speed needs
constexpr unsigned kDrawnFrame = 16;       // milliseconds
constexpr int kMostInputs = 4000;          // in an update, so that no file holds up the program

constexpr SScreenPoint kPlace = {300, 4};
constexpr int kWidth = 300;
constexpr int kHeight = 14;
constexpr int kDepth = 2;  // over everything of the game

constexpr int kKeyPriority = 10;
constexpr std::array<std::string_view, 4> kKeys = {"space", "right", "up", "down"};

CReplayShow* ourShow = nullptr;  // not owned; null while none plays

// Bound for good, because bindings can't be taken back: does nothing while no game is shown.
class CReplayKeys : public vask::IKeyEvent {
 public:
  bool Trigger(int key) override {
    if (ourShow == nullptr) {
      return false;
    }
    ourShow->OnKey(key);
    return true;
  }
};

int KeyOf(std::string_view name) { return vask::KeyFromName(std::string(name)); }

void BindKeysOnce() {
  static const bool isBound = [] {
    const vask::CSmartPtr<vask::IKeyEvent> keys(new CReplayKeys);
    for (const std::string_view name : kKeys) {
      vask::CKeyboard::GetSingletonPtr()->BindKey(KeyOf(name), keys, kKeyPriority);
    }
    return true;
  }();
  static_cast<void>(isBound);
}

}  // namespace

CReplayShow::CReplayShow(CPlay& play, const std::string& file, bool stopsAtDifference)
    : myGame(play, file, stopsAtDifference),
      myClock(vask::CGlobalAppTimer::GetSingletonPtr()),
      myReadout(new vask::CTextSprite(vask::LoadFont("system"), kWidth, kHeight)) {
  mySprite = vask::CSpritePtr(myReadout);
  mySprite->SetPosition(kPlace.x, kPlace.y);
  mySprite->SetZ(kDepth);
  mySprite->SetParent(vask::CScreenLayer::GetSingletonPtr());
  ourShow = this;
  BindKeysOnce();
  ShowTime();
}

CReplayShow::~CReplayShow() {
  ourShow = nullptr;
  SetEffectsShown(true);
}

void CReplayShow::MakeDemo() {
  ourShow = nullptr;
  myReadout = nullptr;
  mySprite = CGfxFactory::GetSingletonPtr()->LoadSprite(kDemoFile);
}

void CReplayShow::Update() {
  const unsigned passed = myClock.GetTime();
  myClock -= passed;
  if (myIsHeld) {
    return;
  }
  const unsigned factor = kRestUnits << kMostDoublings >> (kMostDoublings - myDoublings);
  const unsigned units = myRest + passed * factor;
  myRest = units % kRestUnits;
  PlayUpTo(myTime + units / kRestUnits);
}

void CReplayShow::PlayUpTo(unsigned time) {
  int inputs = 0;
  while (!myGame.IsDone() && vask::HasReached(time, myGame.GetNextTime()) &&
         inputs++ < kMostInputs) {
    myGame.PlayNext();
  }
  // What was too much for one update is not made up for.
  myTime = inputs > kMostInputs ? myGame.GetTime() : time;
  ShowTime();
}

void CReplayShow::Pause() {
  myIsPaused = true;
  myClock.Pause();
}

void CReplayShow::Resume() {
  myIsPaused = false;
  myClock.Resume();
}

void CReplayShow::OnKey(int key) {
  if (myIsPaused) {
    return;
  }
  if (key == KeyOf("space")) {
    myIsHeld = !myIsHeld;
  } else if (key == KeyOf("right")) {
    myIsHeld = true;
    PlayUpTo(std::max(myTime + kDrawnFrame, myGame.GetNextTime()));
  } else {
    SetSpeed(myDoublings + (key == KeyOf("up") ? 1 : -1));
  }
  ShowTime();
}

void CReplayShow::SetSpeed(int doublings) {
  myDoublings = std::clamp(doublings, kFewestDoublings, kMostDoublings);
  SetEffectsShown(myDoublings <= kMostDoublingsWithEffects);
}

void CReplayShow::ShowTime() {
  if (myReadout == nullptr) {
    return;
  }
  const unsigned tenths = myTime / 100;
  std::array<char, 64> time = {};
  std::snprintf(time.data(), time.size(), "Replay %u:%02u.%u", tenths / 600, tenths / 10 % 60,
                tenths % 10);
  std::string text = time.data();
  if (myDoublings != 0) {
    text += (myDoublings > 0 ? "  x " : "  x 1/") + std::to_string(1 << std::abs(myDoublings));
  }
  text += myIsHeld ? "  held" : "";
  text += myGame.GetDifference().empty() ? "" : "  DIFFERS";
  myReadout->SetText(text);
}

}  // namespace brumble
