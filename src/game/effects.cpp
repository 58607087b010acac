#include "game/effects.h"

#include "console/console.h"
#include "game/deathtoasprite.h"
#include "game/gamestate.h"
#include "game/gfxfactory.h"
#include "gfx/animation/externalanimator.h"
#include "gfx/sprite/spritemasker.h"
#include "kernel/applicationfactory.h"
#include "utils/log/log.h"
#include "utils/timer/globalapptimer.h"

#include <algorithm>

namespace brumble {
namespace {

constexpr unsigned kEffectLife = 2100;  // milliseconds
constexpr unsigned kMoveTime = 2000;

constexpr int kSignMiddleY = 125;
constexpr unsigned kSignStackTime = 1000;
constexpr const char* kSignCurve = "sin(t*3.14)*2";
constexpr unsigned kSignSoundPause = 150;  // from one sign's sound to the next one's
constexpr unsigned kMostTurns = 4;         // for which the signs have animations

bool ourAreShown = true;

void Animate(const vask::CSpritePtr& sprite, SScreenPoint target, const std::string& expression) {
  new vask::CExternalAnimator(new vask::CSpriteMoveToUpdator(sprite.Get(), target.x, target.y),
                              kMoveTime, expression, true);
}

unsigned Now() { return vask::CGlobalAppTimer::GetSingletonPtr()->GetTime(); }

// How many pauses the sound of a new sign waits for those before it.
unsigned TakeTurn() {
  SGameState& state = GameState();
  const unsigned now = Now();
  unsigned turn = 0;
  if (state.hasSign && !vask::HasReached(now, state.nextSignSound)) {
    const unsigned wait = state.nextSignSound - now;
    turn = std::min((wait + kSignSoundPause - 1) / kSignSoundPause, kMostTurns);
  }
  state.nextSignSound = now + (turn + 1) * kSignSoundPause;
  return turn;
}

// Where the sign of that height comes to rest; remembers it for the next one.
int PlaceSign(int height) {
  SGameState& state = GameState();
  const unsigned now = Now();
  const bool follows = state.hasSign && now - state.signTime < kSignStackTime;
  state.signTargetY = follows ? state.signTargetY + state.signHeight : kSignMiddleY - height / 2;
  state.hasSign = true;
  state.signTime = now;
  state.signHeight = height;
  return state.signTargetY;
}

}  // namespace

void SetEffectsShown(bool areShown) { ourAreShown = areShown; }

bool AreEffectsShown() { return ourAreShown; }

void ShowSign(const std::string& file) {
  if (!ourAreShown) {
    return;
  }
  const vask::CSpritePtr sprite = CGfxFactory::GetSingletonPtr()->LoadSprite(file);
  if (!sprite) {
    *vask::CLog::GetSingletonPtr() << "Couldn't load sprite: " << file << "\n";
    return;
  }
  if (const unsigned turn = TakeTurn(); turn > 0) {
    sprite->PlayAnimation("show_" + std::to_string(turn));
  }
  const vask::CRect<int> rect = sprite->GetRect();
  const int x = kScreenWidth / 2 - rect.w / 2;
  sprite->SetPosition(x, -rect.h);
  Animate(sprite, {x, PlaceSign(rect.h)}, kSignCurve);
  CDeathToASprite::TakeOver(sprite, kEffectLife);
}

void ShowEffect(const std::string& file, SScreenPoint position, SScreenPoint target,
                const std::string& expression) {
  if (!ourAreShown) {
    return;
  }
  const vask::CSpritePtr sprite = CGfxFactory::GetSingletonPtr()->LoadSprite(file);
  if (!sprite) {
    return;
  }
  if (position.x != 0 && position.y != 0) {
    const vask::CRect<int> rect = sprite->GetRect();
    sprite->SetPosition(position.x - rect.w / 2, position.y - rect.h / 2);
  }
  if (!expression.empty()) {
    Animate(sprite, target, expression);
  }
  CDeathToASprite::TakeOver(sprite, kEffectLife);
}

void PlayEffect(const std::string& file) {
  if (!ourAreShown) {
    return;
  }
  vask::CConsole* const console = vask::CApplicationFactory::GetSingletonPtr()->GetConsole();
  console->Execute("Audio::PlayEffect( \"" + file + "\" );", false);
}

}  // namespace brumble
