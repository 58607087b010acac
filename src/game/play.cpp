#include "game/play.h"

#include "game/physics/arena.h"
#include "game/physics/worldstate.h"

namespace brumble {
namespace {

constexpr unsigned kGameSpeed = 3;  // the world runs faster than the clock
constexpr int kMostSteps = 4;       // per frame

}  // namespace

CPlay::CPlay() {
  myPhysics.GetWorld()->SetBridgeFactory(&myGfxFactory);
  myGfxFactory.SetGameLogic(&myGameLogic);
  CPhysicsWorld::SetGameLogicReceiver(&myGameLogic);
  myGameLogic.SetOwner(this);
  ResetClocks();
  PauseClocks();
}

CPlay::~CPlay() {
  if (CPhysicsWorld::GetGameLogicReceiver() == &myGameLogic) {
    CPhysicsWorld::SetGameLogicReceiver(nullptr);
  }
}

SGameStart CPlay::NextStart(std::uint32_t seed) const {
  const SWorldState& state = WorldState();
  SGameStart start;
  start.seed = seed;
  start.isDoorOpen = state.isDoorOpen;
  start.resetCounter = state.resetCounter;
  start.lookCounter = state.lookCounter;
  start.bodies = GetWorld().GetBodyCount();
  return start;
}

void CPlay::SetNextStart(const SGameStart& start) {
  Stop();
  SWorldState& state = WorldState();
  state.isDoorOpen = start.isDoorOpen;
  state.resetCounter = start.resetCounter;
  state.lookCounter = start.lookCounter;
  myPhysics.GetWorld()->Clear(start.bodies);
}

void CPlay::Start(const SGameStart& start) {
  SetNextStart(start);
  ResumeClocks();
  myGameLogic.NewGame();
  myPhysics.ResetWorld(start.seed);
  ResetClocks();
  myHasExtraKittens = GetWorld().GetBodyCount() > kFirstKittenIndex;
  myIsRunning = true;
  myIsOver = false;
  if (start.isPaused) {
    PauseClocks();
  }
}

void CPlay::Read(const SInput& input) {
  myTime.SetReading(input.time);
  myAppTime.SetReading(input.appTime);
}

bool CPlay::IsDue(const SInput& input) {
  Read(input);
  return input.kind != EInput::kFrame || myPhysicsClock.GetTime() > myPhysicsStep ||
         myLogicClock.GetTime() > myLogicStep;
}

void CPlay::Take(const SInput& input) {
  Read(input);
  switch (input.kind) {
    case EInput::kFrame:
      RunPhysics(input);
      RunLogic();
      break;
    case EInput::kPause:
      PauseClocks();
      break;
    case EInput::kResume:
      if (myIsRunning) {
        ResumeClocks();
      }
      break;
    case EInput::kKitten:
      DropExtraKitten();
      break;
  }
}

void CPlay::Stop() {
  PauseClocks();
  myIsRunning = false;
}

void CPlay::RunPhysics(const SInput& input) {
  int steps = 0;
  while (steps < kMostSteps && myPhysicsClock.GetTime() > myPhysicsStep) {
    myPhysicsClock -= myPhysicsStep;
    myPhysics.SetMousePosition(input.pointerX, input.pointerY);
    myPhysics.Step(myPhysicsStep * kGameSpeed);
    ++steps;
  }
  // A slow frame drops the rest of its backlog: catching up would only make the next one slower.
  if (steps == kMostSteps) {
    myPhysicsClock.Reset();
  }
}

void CPlay::RunLogic() {
  if (myLogicClock.GetTime() <= myLogicStep) {
    return;
  }
  myLogicClock -= myLogicStep;
  if (myGameLogic.IsGameOver()) {
    myIsOver = true;
  } else {
    myGameLogic.Tick();
  }
}

// The bridge gets its index now and not after the next step: if another body leaves in that step,
// the new one moves to its index, and the record must follow.
int CPlay::SpawnKitten() {
  const int index = myPhysics.SpawnKitten();
  const CPhysicsBody& body = GetWorld().GetBodies()[static_cast<std::size_t>(index)];
  if (body.bridge != nullptr) {
    body.bridge->SetIndex(index);
    body.bridge->Update(body.x, body.y, body.angle, body.halfWidth, body.halfHeight, body.shape,
                        body.look);
  }
  return index;
}

void CPlay::DropExtraKitten() {
  myPhysics.SpawnKitten();
  myHasExtraKittens = true;
}

void CPlay::PauseClocks() {
  myPhysicsClock.Pause();
  myLogicClock.Pause();
  myGameLogic.PauseClock();
}

void CPlay::ResumeClocks() {
  myPhysicsClock.Resume();
  myLogicClock.Resume();
  myGameLogic.ResumeClock();
}

void CPlay::ResetClocks() {
  myPhysicsClock.Reset();
  myLogicClock.Reset();
}

}  // namespace brumble
