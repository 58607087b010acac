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
#include "kernel/applicationfactory.h"
#include "platform/wallclock.h"
#include "utils/log/log.h"
#include "utils/timer/globalapptimer.h"
#include "utils/timer/globaltimerimpl.h"

#include <filesystem>
#include <system_error>
#include <utility>

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

CBrumbleTaskImpl* ourCurrent = nullptr;

int ourStopSwitch = 0;
const vask::CConsoleVariableRegistrar theVariableRegistrar("game_replay_stop", ourStopSwitch);

std::uint32_t NewSeed() { return static_cast<std::uint32_t>(vask::platform::WallClockSeconds()); }

}  // namespace

void CBrumbleTaskImpl::CMouseDeltaListener::OnMouseMoveRelative(int dx, int dy) {
  myTotalX += dx;
  myTotalY += dy;
}

CBrumbleTaskImpl::CBrumbleTaskImpl() {
  ourCurrent = this;
  CGfxFactory::GetSingletonPtr()->Load(kSpriteTableFile, kSpriteTableRoot);
  HoldPictures();
  vask::CMouse::GetSingletonPtr()->AddDragged(&myMouseListener);
  SetScreenTransform(kScreenOffset, kScreenScale);
  ShowTitle();
  myTunes.Play(ETune::kTitle);  // now, so that the lines after the start of the game can stop it
}

CBrumbleTaskImpl::~CBrumbleTaskImpl() {
  if (ourCurrent == this) {
    ourCurrent = nullptr;
  }
  if (myNextStart) {
    myPlay.SetNextStart(*myNextStart);  // the task may be started again
  }
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

CBrumbleTaskImpl* CBrumbleTaskImpl::GetCurrent() { return ourCurrent; }

void CBrumbleTaskImpl::ShowTitle() {
  myScreen = std::make_unique<CBrumbleInGameUi>(this);
  myScreen->ShowTitle();
  myTitleBest.Show();
  vask::CEventBridge::GetSingletonPtr()->ShowCursor();
}

ETune CBrumbleTaskImpl::WantedTune() const {
  if (myScreen != nullptr || myDemoWatch.IsPlaying()) {
    return ETune::kTitle;
  }
  return GameState().kittensLeft > 0 ? ETune::kPlay : ETune::kLastKitten;
}

void CBrumbleTaskImpl::Update() {
  myTunes.Play(WantedTune());
  if (myScreen != nullptr) {
    StartDemoWhenDue();
    return;
  }
  if (myReplay != nullptr) {
    UpdateReplay();
    return;
  }
  Enter(EInput::kFrame);
  if (myPlay.IsOver()) {
    ShowGameOver();
  } else {
    myCast.Update(GetWorld(), GetGameLogic().GetStory());
  }
}

// Nothing else may reach play. The recording has an input before it acts, so that the frame that
// fails is in it.
void CBrumbleTaskImpl::Enter(EInput kind) {
  const SInput input = ReadInput(kind);
  if (myReplay == nullptr && myPlay.IsDue(input)) {
    myRecorder.Note(input);
    myPlay.Take(input);
  }
}

void CBrumbleTaskImpl::StartNewGame() {
  const SInput now = ReadInput(EInput::kFrame);
  SGameStart start = myNextStart.value_or(myPlay.NextStart(0));
  myNextStart.reset();
  start.seed = NewSeed();
  start.pointerX = now.pointerX;
  start.pointerY = now.pointerY;
  start.isPaused = myIsPaused;
  myRecorder.Begin(start, now);  // before anything of the game can fail
  myPlay.Read(now);
  myPlay.Start(start);
  ShowPlay(BestScore() <= 0);
}

// In the place of the screen, and as it is while the task is paused.
void CBrumbleTaskImpl::ShowPlay(bool isNovice) {
  vask::CEventBridge::GetSingletonPtr()->HideCursor();
  myBackground = CGfxFactory::GetSingletonPtr()->LoadSprite(kBackgroundFile);
  myCast.Begin(GetGameLogic().GetStory(), isNovice);
  myCast.SetPlaying(GetWorld(), !myIsPaused);
  myTitleBest.Hide();
  myPanel.reset();
  myScreen.reset();
  if (myIsPaused) {
    ShowPaused();
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

// A replay's result is shown only.
SGameResult CBrumbleTaskImpl::EnterResult() {
  const std::string recording = myRecorder.End();
  SGameResult result;
  result.story = GetGameLogic().GetStory();
  result.bestBefore = BestScore();
  if (!myPlay.HasExtraKittens() && myReplay == nullptr) {
    result.place =
        EnterScore({.score = result.Score(), .date = Today(), .recording = recording, .more = ""});
  }
  CGameRecorder::RemoveOld();
  return result;
}

std::string CBrumbleTaskImpl::RecordNext(const std::string& file) {
  std::error_code ignored;
  if (std::filesystem::exists(file, ignored)) {
    return "Error: RecordGame() " + file + " is there already.";
  }
  myRecorder.NameNext(file);
  return {};
}

std::string CBrumbleTaskImpl::StartReplay(const std::string& file) {
  StopReplay();
  if (myPlay.IsRunning()) {
    return "Error: ReplayGame() A game is being played.";
  }
  const SGameStart next = myNextStart.value_or(myPlay.NextStart(0));
  auto replay = std::make_unique<CReplayShow>(myPlay, file, ourStopSwitch != 0);
  if (replay->GetGame().IsDone()) {
    if (myPlay.IsRunning()) {
      myPlay.SetNextStart(next);
    }
    const std::string& problem = replay->GetGame().GetProblem();
    return "Error: ReplayGame() " + file + ": " +
           (problem.empty() ? "nothing happens in it" : problem) + ".";
  }
  myNextStart = next;
  myReplay = std::move(replay);
  if (myIsPaused) {
    myReplay->Pause();
  }
  ShowPlay(false);
  return {};
}

void CBrumbleTaskImpl::StartDemoWhenDue() {
  const bool isTitle = myScreen->GetState() == CBrumbleInGameUi::kTitle;
  if (!isTitle || !myCanDemo || !myDemoWatch.IsDue()) {
    return;
  }
  const std::string error = StartReplay(kDemoRecording);
  myCanDemo = error.empty();
  if (!myCanDemo) {
    vask::Log().Warning() << error << "\n";
    return;
  }
  myReplay->MakeDemo();
  myDemoWatch.Begin();
}

// What ends a demo does so in the next frame, when nobody else hears of it any more.
void CBrumbleTaskImpl::UpdateReplay() {
  myReplay->Update();
  const bool isDone = myReplay->GetGame().IsDone();
  if (myDemoWatch.IsPlaying() && (isDone || myDemoWatch.WasTouched())) {
    StopReplay();
  } else if (isDone) {
    EndReplay();
  } else {
    myCast.Update(GetWorld(), GetGameLogic().GetStory());
    myCast.SetPlaying(GetWorld(), !myReplay->IsHeld());
  }
}

void CBrumbleTaskImpl::EndReplay() {
  const CReplayedGame& game = myReplay->GetGame();
  vask::Log() << "Replay: " << (game.HasHeld() ? "held, " : "NOT held, ") << game.GetSummary()
              << "\n";
  for (const std::string& line : {game.GetDifference(), game.GetProblem()}) {
    if (!line.empty()) {
      vask::Log().Warning() << "Replay: " << line << "\n";
    }
  }
  if (myPlay.IsOver()) {
    ShowGameOver();
    myReplay.reset();
  } else {
    StopReplay();
  }
}

void CBrumbleTaskImpl::StopReplay() {
  if (myReplay == nullptr) {
    return;
  }
  myReplay.reset();
  myDemoWatch.End();
  myPlay.SetNextStart(*myNextStart);
  myNextStart.reset();  // play has it now, and what comes still counts
  myCast.Clear();
  CDeathToASprite::DeleteAll();
  myBackground.Reset();
  ShowTitle();
}

void CBrumbleTaskImpl::Pause() {
  Enter(EInput::kPause);
  if (myReplay != nullptr) {
    myReplay->Pause();
  }
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
  if (myReplay != nullptr) {
    myReplay->Resume();
  }
  if (myScreen == nullptr) {
    myCast.SetPlaying(GetWorld(), true);
  }
  vask::CEventBridge::GetSingletonPtr()->HideCursor();
}

void CBrumbleTaskImpl::DropExtraKitten() {
  Enter(EInput::kKitten);
  if (myReplay == nullptr && myNextStart) {
    ++myNextStart->bodies;  // at the panel of a recorded game
  }
}

}  // namespace brumble
