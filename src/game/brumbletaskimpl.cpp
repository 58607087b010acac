#include "game/brumbletaskimpl.h"

#include "events/eventbridge.h"
#include "game/bonustable.h"
#include "game/brumblegfx.h"
#include "game/brumbleingameui.h"
#include "game/deathtoasprite.h"
#include "game/gamefiles.h"
#include "game/gamestate.h"
#include "game/gfxfactory.h"
#include "game/physics/screentransform.h"
#include "game/scores.h"
#include "input/mouse.h"
#include "platform/wallclock.h"
#include "utils/timer/globalapptimer.h"
#include "utils/timer/globaltimerimpl.h"

namespace brumble {
namespace {

// Everything from outside that play may know, read at this moment.
SInput ReadInput(EInput kind) {
  const vask::CMouse& mouse = *vask::CMouse::GetSingletonPtr();
  return {.kind = kind,
          .time = vask::GetGlobalTime(),
          .appTime = vask::CGlobalAppTimer::GetSingletonPtr()->GetTime(),
          .pointerX = mouse.GetPointerX(),
          .pointerY = mouse.GetPointerY()};
}

std::uint32_t NewSeed() { return static_cast<std::uint32_t>(vask::platform::WallClockSeconds()); }

}  // namespace

void CBrumbleTaskImpl::CMouseDeltaListener::OnMouseMoveRelative(int dx, int dy) {
  myTotalX += dx;
  myTotalY += dy;
}

CBrumbleTaskImpl::CBrumbleTaskImpl() {
  CGfxFactory::GetSingletonPtr()->Load(kSpriteTableFile, kSpriteTableRoot);
  HoldPictures();
  vask::CMouse::GetSingletonPtr()->AddDragged(&myMouseListener);
  SetScreenTransform(kScreenOffset, kScreenScale);
  myScreen = std::make_unique<CBrumbleInGameUi>(this);
  myScreen->ShowTitle();
  myTitleBest.Show();
  myTunes.Play(ETune::kTitle);  // now, so that the lines after the start of the game can stop it
  vask::CEventBridge::GetSingletonPtr()->ShowCursor();
}

CBrumbleTaskImpl::~CBrumbleTaskImpl() {
  // The effects would live for two seconds more, longer than the task that frees pictures.
  CDeathToASprite::DeleteAll();
}

void CBrumbleTaskImpl::HoldPictures() {
  for (const char* const file : kSpriteFiles) {
    myPictures.Hold(file);
  }
  for (const SBonus& bonus : kBonuses) {
    if (bonus.signFile != nullptr) {
      myPictures.Hold(bonus.signFile);
    }
  }
  for (int number = 1; number <= 2 * kSayingsOfAHair; ++number) {
    myPictures.Hold(SayingFile(number));
  }
  for (int hair = 1; hair <= 3; ++hair) {
    myPictures.Hold(AboveMarkerFile(hair));
    for (int spin = 0; spin <= 2; ++spin) {
      myPictures.Hold(CBrumbleGfx::KittenFile(hair, spin));
    }
  }
  for (const auto& [handle, file] : CGfxFactory::GetSingletonPtr()->GetFiles()) {
    myPictures.Hold(file);
  }
}

ETune CBrumbleTaskImpl::WantedTune() const {
  if (myScreen != nullptr) {
    return ETune::kTitle;
  }
  return GameState().kittensLeft > 0 ? ETune::kPlay : ETune::kLastKitten;
}

void CBrumbleTaskImpl::Update() {
  myTunes.Play(WantedTune());
  if (myScreen != nullptr) {
    return;
  }
  Enter(EInput::kFrame);
  if (myPlay.IsOver()) {
    ShowGameOver();
  } else {
    myCast.Update(GetWorld(), GetGameLogic().GetStory());
  }
}

// Nothing else may reach play.
void CBrumbleTaskImpl::Enter(EInput kind) {
  const SInput input = ReadInput(kind);
  if (myPlay.IsDue(input)) {
    myPlay.Take(input);
  }
}

void CBrumbleTaskImpl::StartNewGame() {
  vask::CEventBridge::GetSingletonPtr()->HideCursor();
  const SInput now = ReadInput(EInput::kFrame);
  SGameStart start = myPlay.NextStart(NewSeed());
  start.pointerX = now.pointerX;
  start.pointerY = now.pointerY;
  start.isPaused = myIsPaused;
  myPlay.Read(now);
  myPlay.Start(start);
  myBackground = CGfxFactory::GetSingletonPtr()->LoadSprite(kBackgroundFile);
  myCast.Begin(GetGameLogic().GetStory(), BestScore() == 0);
  myCast.SetPlaying(GetWorld(), !myIsPaused);
  myPanel.reset();
  myScreen.reset();
  if (myIsPaused) {
    ShowPaused();  // since a screen was shown
  }
}

void CBrumbleTaskImpl::ShowGameOver() {
  myPlay.Stop();
  myCast.SetPlaying(GetWorld(), false);
  myCast.EndPlay();
  vask::CEventBridge::GetSingletonPtr()->ShowCursor();
  myScreen.reset();
  myScreen = std::make_unique<CBrumbleInGameUi>(this);
  myScreen->ShowGameOver();
  myPanel = std::make_unique<CGameOverPanel>();
  myPanel->Show(EnterResult());
}

SGameResult CBrumbleTaskImpl::EnterResult() const {
  SGameResult result;
  result.story = GetGameLogic().GetStory();
  result.bestBefore = BestScore();
  if (!myPlay.HasExtraKittens()) {
    result.place =
        EnterScore({.score = result.Score(), .date = Today(), .recording = "-", .more = ""});
  }
  return result;
}

void CBrumbleTaskImpl::Pause() {
  Enter(EInput::kPause);
  myCast.SetPlaying(GetWorld(), false);
  ShowPaused();
}

void CBrumbleTaskImpl::ShowPaused() {
  if (!myPausedSign) {
    myPausedSign = CGfxFactory::GetSingletonPtr()->LoadSprite(kPausedFile);
  }
  myIsPaused = true;
  vask::CEventBridge::GetSingletonPtr()->ShowCursor();
}

void CBrumbleTaskImpl::Resume() {
  myIsPaused = false;
  myPausedSign.Reset();
  Enter(EInput::kResume);
  if (myScreen == nullptr) {
    myCast.SetPlaying(GetWorld(), true);
  }
  vask::CEventBridge::GetSingletonPtr()->HideCursor();
}

void CBrumbleTaskImpl::DropExtraKitten() { Enter(EInput::kKitten); }

}  // namespace brumble
