#include "game/physics/physicsworld.h"

#include "game/physics/arena.h"
#include "game/physics/contactsolver.h"
#include "game/physics/worldstate.h"
#include "platform/random.h"
#include "platform/wallclock.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brumble {
namespace {

// A fresh random number between 0 and `range`.
float Random(float range) {
  return range * static_cast<float>(vask::platform::Rand()) /
         static_cast<float>(vask::platform::kRandMax);
}

void PlaceAsInArena(CPhysicsBody& body, const SArenaBody& place) {
  body.shape = place.shape;
  body.halfWidth = place.halfWidth;
  body.halfHeight = place.halfHeight;
  body.x = place.x;
  body.y = place.y;
  body.angle = place.angle;
  body.vx = 0.0F;
  body.vy = 0.0F;
  body.angularVelocity = 0.0F;
  body.invMass = 0.0F;
  body.invInertia = 0.0F;
  body.kind = place.kind;
}

void SetDiscMass(CPhysicsBody& body, float mass, float radius) {
  body.invMass = 1.0F / mass;
  body.invInertia = 1.0F / (0.5F * mass * (radius * radius));
}

void SetSquareMass(CPhysicsBody& body, float mass, float half) {
  const float side = 2.0F * half;
  body.invMass = 1.0F / mass;
  body.invInertia = 1.0F / (mass * (1.0F / 12.0F) * (side * side + side * side));
}

bool IsInOven(const CPhysicsBody& body) { return body.x < -kOvenX || body.x > kOvenX; }

bool HasLeft(const CPhysicsBody& body) {
  return body.kind != kStatic && (IsInOven(body) || body.y > kHellY);
}

bool IsFast(float speed) { return speed <= -kFreeSpeed || speed > kFreeSpeed; }

}  // namespace

CPhysicsWorld::CPhysicsWorld() : myBodies(kFirstKittenIndex) {
  myGenerator.Reserve(myBodies.size());
}

void CPhysicsWorld::SetUp() { SetUp(static_cast<unsigned>(vask::platform::WallClockSeconds())); }

void CPhysicsWorld::SetUp(unsigned seed) {
  vask::platform::SeedRand(seed);
  for (CPhysicsBody& body : myBodies) {
    ResetBody(body);
  }
  BuildArena();
}

void CPhysicsWorld::Clear(int count) {
  myBodies.clear();
  myBodies.resize(static_cast<std::size_t>(std::max(count, kFirstKittenIndex)));
  myGenerator.Reserve(myBodies.size());
}

void CPhysicsWorld::Step(float dt) {
  const float step = std::min(dt, kMaxStep);
  ApplyForces(step);
  myGenerator.Generate(myBodies, myContacts);
  ResolveContacts(myContacts);
  myContacts.Clear();
  Integrate(step);
  ReportAndRemove();
}

void CPhysicsWorld::AddKittenBody(float x, float y, float vx, float vy) {
  CPhysicsBody kitten;
  kitten.shape = kBox;
  kitten.halfWidth = kKittenHalf;
  kitten.halfHeight = kKittenHalf;
  kitten.x = x;
  kitten.y = y;
  kitten.vx = vx;
  kitten.vy = vy;
  kitten.kind = kDynamic;
  SetSquareMass(kitten, kMassBase + Random(kMassSpread), kKittenHalf);
  kitten.angle = Random(kKittenTurn);
  kitten.look = WorldState().lookCounter++ % kKittenLooks;
  kitten.bridge = CreateBridge();
  myBodies.push_back(std::move(kitten));
  myGenerator.Reserve(myBodies.size());
}

int CPhysicsWorld::SpawnKitten() {
  AddKittenBody(Random(kSpawnWidth) + kSpawnLeft, kSpawnY, 0.0F, 0.0F);
  return GetBodyCount() - 1;
}

void CPhysicsWorld::SetKittenVelocity(int index, SVec2 velocity) {
  if (index < kFirstKittenIndex || index >= GetBodyCount()) {
    return;
  }
  CPhysicsBody& kitten = myBodies[static_cast<std::size_t>(index)];
  kitten.vx = velocity.x;
  kitten.vy = velocity.y;
}

void CPhysicsWorld::SetPlayerTarget(float x, float y, float t) {
  CPhysicsBody& monster = myBodies[kMonsterIndex];
  SVec2 velocity = {(x - monster.x) / t, (y - monster.y) / t};
  if (IsFast(velocity.x) || IsFast(velocity.y)) {
    const float wanted = Length(velocity);
    const float growth = 1.0F - std::exp(-kMonsterSpeedGrowth * wanted);
    velocity = velocity / wanted * kMonsterSpeedLimit * growth;
  }
  monster.vx = velocity.x;
  monster.vy = velocity.y;
}

void CPhysicsWorld::SetGameLogicReceiver(IGameLogicReceiver* receiver) {
  WorldState().receiver = receiver;
}

IGameLogicReceiver* CPhysicsWorld::GetGameLogicReceiver() { return WorldState().receiver; }

bool CPhysicsWorld::IsDoorOpen() { return WorldState().isDoorOpen; }

void CPhysicsWorld::ResetBody(CPhysicsBody& body) {
  body.shape = kCircle;
  body.halfWidth = kResetRadius;
  body.halfHeight = kResetRadius;
  body.angle = 0.0F;
  body.vx = 0.0F;
  body.vy = 0.0F;
  body.angularVelocity = 0.0F;
  body.kind = kDynamic;
  body.look = 0;
  SetDiscMass(body, kResetMassBase + Random(kResetMassSpread), kResetRadius);

  std::int32_t& counter = WorldState().resetCounter;
  const float place = static_cast<float>(++counter);
  body.x = kResetSpacing * place;
  body.y = kResetY;
  counter = static_cast<std::int32_t>(place - kResetCounterDrop);

  body.bridge.reset();
  body.bridge = CreateBridge();
}

void CPhysicsWorld::BuildArena() {
  for (std::size_t i = 0; i < kArena.size(); ++i) {
    PlaceAsInArena(myBodies[i], kArena[i]);
  }
  CPhysicsBody& monster = myBodies[kMonsterIndex];
  SetDiscMass(monster, kMassBase + Random(kMassSpread), monster.halfWidth);
}

std::unique_ptr<IPhysicsGfxBridge> CPhysicsWorld::CreateBridge() const {
  return myBridgeFactory != nullptr ? myBridgeFactory->Create() : nullptr;
}

void CPhysicsWorld::ApplyForces(float dt) {
  for (CPhysicsBody& body : myBodies) {
    if (body.kind == kStatic) {
      continue;
    }
    if (body.kind == kDynamic) {
      body.vy += kGravity * dt;
    }
    body.vx *= kDamping;
    body.vy *= kDamping;
  }
}

void CPhysicsWorld::Integrate(float dt) {
  for (CPhysicsBody& body : myBodies) {
    if (body.kind == kStatic) {
      continue;
    }
    body.x += body.vx * dt;
    body.y += body.vy * dt;
    body.angle += body.angularVelocity * dt;
  }
}

// Walks by index and looks each body up again after every callback, which may add bodies and so
// move the array.
void CPhysicsWorld::ReportAndRemove() {
  for (std::size_t i = 0; i < myBodies.size();) {
    if (myBodies[i].bridge != nullptr) {
      ReportBody(i);
    }
    if (i >= kFirstKittenIndex && HasLeft(myBodies[i])) {
      ReportAndRemoveKitten(i);
    } else {
      ++i;
    }
  }
}

void CPhysicsWorld::ReportBody(std::size_t index) {
  // The bridge itself stays where it is, whatever happens to the array.
  IPhysicsGfxBridge& bridge = *myBodies[index].bridge;
  bridge.SetIndex(static_cast<int>(index));
  const CPhysicsBody& body = myBodies[index];
  bridge.Update(body.x, body.y, body.angle, body.halfWidth, body.halfHeight, body.shape, body.look);
  bridge.SetAngularVelocity(myBodies[index].angularVelocity);
  DamageBySpin(index);
}

void CPhysicsWorld::DamageBySpin(std::size_t index) {
  const float spin = myBodies[index].angularVelocity;
  if (!(std::abs(spin) > kDamageSpin)) {
    return;
  }
  IPhysicsGfxBridge& bridge = *myBodies[index].bridge;
  bridge.myHealth -= spin * spin / kDamageDivisor;
  bridge.OnDamaged();
  if (bridge.myHealth <= 0.0F && !IsDoorOpen()) {
    OpenDoor();
  }
}

// Reports a kitten that has left to the game and removes it from the world.
void CPhysicsWorld::ReportAndRemoveKitten(std::size_t index) {
  if (IGameLogicReceiver* const receiver = GetGameLogicReceiver()) {
    const int kitten = static_cast<int>(index);
    if (IsInOven(myBodies[index])) {
      receiver->OnKittenInOven(kitten);
    } else {
      receiver->OnKittenInHell(kitten);
    }
  }
  CloseDoor();
  RemoveBody(index);
}

// The last body takes the free place, so that the others keep their indices.
void CPhysicsWorld::RemoveBody(std::size_t index) {
  myBodies[index].bridge.reset();
  if (index + 1 != myBodies.size()) {
    myBodies[index] = std::move(myBodies.back());
  }
  myBodies.pop_back();
}

void CPhysicsWorld::OpenDoor() {
  WorldState().isDoorOpen = true;
  myBodies[kDoorIndex].y = kDoorOpenY;
  if (IGameLogicReceiver* const receiver = GetGameLogicReceiver()) {
    receiver->OnDoorOpened();
  }
}

void CPhysicsWorld::CloseDoor() {
  if (!IsDoorOpen()) {
    return;
  }
  WorldState().isDoorOpen = false;
  myBodies[kDoorIndex].y = kDoorShutY;
  if (IGameLogicReceiver* const receiver = GetGameLogicReceiver()) {
    receiver->OnDoorClosed();
  }
}

}  // namespace brumble
