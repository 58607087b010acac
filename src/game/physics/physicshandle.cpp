#include "game/physics/physicshandle.h"

#include "game/physics/screentransform.h"

namespace brumble {
namespace {

// One axis of the way from the mouse to the world: the pointer's range is multiplied by `squeeze`
// and moved by `margin` pixels; the inverse of the screen transform does the rest.
struct SMouseAxis {
  float squeeze;
  float margin;
  float offset;
  float scale;
};

constexpr SMouseAxis kMouseX = {0.71375F, 113.0F, kScreenOffset.x, kScreenScale.x};
constexpr SMouseAxis kMouseY = {0.93333334F, 20.0F, kScreenOffset.y, kScreenScale.y};
constexpr float kMouseReachTime = 0.05F;  // seconds in which the monster should be there

float ToWorld(int pixel, const SMouseAxis& axis) {
  return (static_cast<float>(pixel) * axis.squeeze + axis.margin - axis.offset) / axis.scale;
}

float ToPixel(float place, const SMouseAxis& axis) {
  return (place * axis.scale + axis.offset - axis.margin) / axis.squeeze;
}

}  // namespace

CPhysicsHandle::CPhysicsHandle() : myWorld(std::make_unique<CPhysicsWorld>()) {}

void CPhysicsHandle::SetMousePosition(int x, int y) {
  if (myWorld == nullptr) {
    return;
  }
  myMouseX = x;
  myMouseY = y;
  myWorld->SetPlayerTarget(ToWorld(x, kMouseX), ToWorld(y, kMouseY), kMouseReachTime);
}

SVec2 CPhysicsHandle::PointerFor(SVec2 place) {
  return {ToPixel(place.x, kMouseX), ToPixel(place.y, kMouseY)};
}

void CPhysicsHandle::Step(unsigned milliseconds) {
  if (myWorld != nullptr) {
    myWorld->Step(static_cast<float>(milliseconds / 1000.0));
  }
}

int CPhysicsHandle::SpawnKitten() { return myWorld != nullptr ? myWorld->SpawnKitten() : 0; }

void CPhysicsHandle::PushKitten(int index, SVec2 velocity) {
  if (myWorld != nullptr) {
    myWorld->SetKittenVelocity(index, velocity);
  }
}

void CPhysicsHandle::ResetWorld() {
  if (myWorld != nullptr) {
    myWorld->SetUp();
  }
}

void CPhysicsHandle::ResetWorld(unsigned seed) {
  if (myWorld != nullptr) {
    myWorld->SetUp(seed);
  }
}

}  // namespace brumble
