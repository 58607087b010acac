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

namespace brumble {
namespace {

constexpr unsigned kGameSpeed = 3;  // the world runs faster than the clock
constexpr int kMostSteps = 4;       // per frame

}  // namespace

void CBrumbleTaskImpl::CMouseDeltaListener::OnMouseMoveRelative(int dx, int dy) {
  myTotalX += dx;
  myTotalY += dy;
}

CBrumbleTaskImpl::CBrumbleTaskImpl() {
  CGfxFactory::GetSingletonPtr()->Load(kSpriteTableFile, kSpriteTableRoot);
  HoldPictures();
  Connect();
  SetScreenTransform(kScreenOffset, kScreenScale);
  myScreen = std::make_unique<CBrumbleInGameUi>(this);
  myScreen->ShowTitle();
  myTitleBest.Show();
  myTunes.Play(ETune::kTitle);  // now, so that the lines after the start of the game can stop it
  ResetClocks();
  PauseClocks();
  vask::CEventBridge::GetSingletonPtr()->ShowCursor();
}

CBrumbleTaskImpl::~CBrumbleTaskImpl() {
  if (CPhysicsWorld::GetGameLogicReceiver() == &myGameLogic) {
    CPhysicsWorld::SetGameLogicReceiver(nullptr);
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

void CBrumbleTaskImpl::Connect() {
  myPhysics.GetWorld()->SetBridgeFactory(&myGfxFactory);
  myGfxFactory.SetGameLogic(&myGameLogic);
  CPhysicsWorld::SetGameLogicReceiver(&myGameLogic);
  myGameLogic.SetOwner(this);
  vask::CMouse::GetSingletonPtr()->AddDragged(&myMouseListener);
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
  RunPhysics();
  myCast.Update(GetWorld(), myGameLogic.GetStory());
  RunLogic();
}

void CBrumbleTaskImpl::RunPhysics() {
  int steps = 0;
  while (steps < kMostSteps && myPhysicsClock.GetTime() > myPhysicsStep) {
    myPhysicsClock -= myPhysicsStep;
    const vask::CMouse& mouse = *vask::CMouse::GetSingletonPtr();
    myPhysics.SetMousePosition(mouse.GetPointerX(), mouse.GetPointerY());
    myPhysics.Step(myPhysicsStep * kGameSpeed);
    ++steps;
  }
  // A slow frame drops the rest of its backlog: catching up would only make the next one slower.
  if (steps == kMostSteps) {
    myPhysicsClock.Reset();
  }
}

void CBrumbleTaskImpl::RunLogic() {
  if (myLogicClock.GetTime() <= myLogicStep) {
    return;
  }
  myLogicClock -= myLogicStep;
  if (myGameLogic.IsGameOver()) {
    ShowGameOver();
  } else {
    myGameLogic.Tick();
  }
}

void CBrumbleTaskImpl::StartNewGame() {
  vask::CEventBridge::GetSingletonPtr()->HideCursor();
  ResumeClocks();
  myGameLogic.NewGame();
  myBackground = CGfxFactory::GetSingletonPtr()->LoadSprite(kBackgroundFile);
  myPhysics.ResetWorld();
  ResetClocks();
  myCast.Begin(myGameLogic.GetStory(), BestScore() <= 0);
  myHasExtraKittens = GetWorld().GetBodyCount() > kFirstKittenIndex;
  myPanel.reset();
  myScreen.reset();
  if (myIsPaused) {
    Pause();  // the task was paused while the screen was shown
  }
}

void CBrumbleTaskImpl::ShowGameOver() {
  PauseClocks();
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
  result.story = myGameLogic.GetStory();
  result.bestBefore = BestScore();
  if (!myHasExtraKittens) {
    result.place =
        EnterScore({.score = result.Score(), .date = Today(), .recording = "-", .more = ""});
  }
  return result;
}

void CBrumbleTaskImpl::Pause() {
  if (!myIsPaused) {
    myPausedSign = CGfxFactory::GetSingletonPtr()->LoadSprite(kPausedFile);
  }
  myIsPaused = true;
  PauseClocks();
  vask::CEventBridge::GetSingletonPtr()->ShowCursor();
}

void CBrumbleTaskImpl::Resume() {
  myIsPaused = false;
  myPausedSign.Reset();
  if (myScreen == nullptr) {
    ResumeClocks();
  }
  vask::CEventBridge::GetSingletonPtr()->HideCursor();
}

// The bridge gets its index now and not after the next step: if another body leaves in that step,
// the new one moves to its index, and the record must follow.
int CBrumbleTaskImpl::SpawnKitten() {
  const int index = myPhysics.SpawnKitten();
  const CPhysicsBody& body = GetWorld().GetBodies()[static_cast<std::size_t>(index)];
  if (body.bridge != nullptr) {
    body.bridge->SetIndex(index);
    body.bridge->Update(body.x, body.y, body.angle, body.halfWidth, body.halfHeight, body.shape,
                        body.look);
  }
  return index;
}

void CBrumbleTaskImpl::DropExtraKitten() {
  myPhysics.SpawnKitten();
  myHasExtraKittens = true;
}

void CBrumbleTaskImpl::PauseClocks() {
  myPhysicsClock.Pause();
  myLogicClock.Pause();
  myGameLogic.PauseClock();
  myCast.SetPlaying(GetWorld(), false);
}

void CBrumbleTaskImpl::ResumeClocks() {
  myPhysicsClock.Resume();
  myLogicClock.Resume();
  myGameLogic.ResumeClock();
  myCast.SetPlaying(GetWorld(), true);
}

void CBrumbleTaskImpl::ResetClocks() {
  myPhysicsClock.Reset();
  myLogicClock.Reset();
}

}  // namespace brumble
