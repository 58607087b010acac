#include "game/scoreboard.h"

#include "game/deathtoasprite.h"
#include "game/effects.h"
#include "game/gamefiles.h"
#include "gfx/animation/externalanimator.h"
#include "gfx/sprite/screenlayer.h"
#include "gfx/sprite/spritemasker.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"

#include <array>
#include <memory>
#include <utility>

namespace brumble {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 50;
constexpr SScreenPoint kFirstPosition = {10, 10};
constexpr int kDepth = 40;
constexpr int kInterval = 30;  // milliseconds

// One stage of a run: beyond the gap the shown value takes the step.
struct SStage {
  int gap;
  int step;
};
constexpr std::array<SStage, 5> kStages = {
    {{0, 1}, {10, 10}, {100, 100}, {5000, 1000}, {30000, 10000}}};

constexpr int kFloatingDepth = 20;
constexpr int kFloatingRise = 150;  // pixels
constexpr unsigned kFloatingLife = 1500;
constexpr const char* kRiseCurve = "sin(t*1.57)";
constexpr int kFadeAlpha = 255;
constexpr int kFadeStep = 2;  // each change of alpha costs a copy of the picture
constexpr unsigned kFadeTime = 1400;
constexpr const char* kFadeCurve = "sin(t*3.14)*2";

int RunStage(int shown, int target, const SStage& stage) {
  // In 64 bits, because a gap below the least number would wrap.
  const long long distance = static_cast<long long>(target) - shown;
  if (distance > stage.gap) {
    return shown + stage.step;
  }
  return distance < -stage.gap ? shown - stage.step : shown;
}

vask::CSpritePtr MakeFloatingSprite(std::unique_ptr<vask::CFont> font, SScreenPoint corner,
                                    int width, int height, const std::string& text) {
  vask::CSpritePtr sprite(new vask::CTextSprite(std::move(font), width, height));
  sprite->SetPosition(corner.x, corner.y);
  sprite->SetZ(kFloatingDepth);
  sprite->SetText(text);
  sprite->SetAlpha(0);
  sprite->SetParent(vask::CScreenLayer::GetSingletonPtr());
  return sprite;
}

}  // namespace

CScoreBoard::CScoreBoard()
    : myTextSprite(new vask::CTextSprite(vask::LoadFont(kDigitsFontFile), kWidth, kHeight)) {
  mySprite = vask::CSpritePtr(myTextSprite);
  mySprite->SetPosition(kFirstPosition.x, kFirstPosition.y);
  mySprite->SetZ(kDepth);
  mySprite->SetParent(vask::CScreenLayer::GetSingletonPtr());
  Set(0);
  SetInterval(kInterval);
  CFakeThread::Start();
}

void CScoreBoard::Set(int value) {
  myShown = value;
  myTarget = value;
  ShowNumber();
}

int CScoreBoard::Add(int delta) {
  myTarget += delta;
  return delta;
}

void CScoreBoard::SetPosition(int x, int y) { mySprite->SetPosition(x, y); }

void CScoreBoard::Run() {
  if (myShown == myTarget) {
    return;
  }
  for (const SStage& stage : kStages) {
    myShown = RunStage(myShown, myTarget, stage);
  }
  ShowNumber();
}

void CScoreBoard::ShowNumber() { mySprite->SetText(std::to_string(myShown)); }

void CScoreBoard::ShowFloatingText(SScreenPoint position, const std::string& text) {
  if (!AreEffectsShown()) {
    return;
  }
  std::unique_ptr<vask::CFont> font = vask::LoadFont(kDigitsFontFile);
  if (font->GetSheet()->IsEmpty()) {
    return;
  }
  const int height = font->GetLineHeight();
  if (position.y <= -height) {
    return;
  }
  const int width = font->GetTextWidth(text);
  const SScreenPoint corner = {position.x - width / 2, position.y - height / 2};
  const vask::CSpritePtr sprite = MakeFloatingSprite(std::move(font), corner, width, height, text);
  vask::CSprite* const plain = sprite.Get();
  new vask::CExternalAnimator(
      new vask::CSpriteMoveToUpdator(plain, corner.x, corner.y - kFloatingRise), kFloatingLife,
      kRiseCurve, false);
  new vask::CExternalAnimator(new vask::CSpriteSetAlphaUpdator(plain, kFadeAlpha, kFadeStep),
                              kFadeTime, kFadeCurve, true);
  CDeathToASprite::TakeOver(sprite, kFloatingLife);
}

}  // namespace brumble
