#include "game/physics/physicshandle.h"

namespace brumble {
namespace {

// One axis of the way from the mouse to the world: the screen's range is squeezed by `squeeze` and
// moved by `margin` pixels, then put through the screen's transform backwards.
struct CMouseAxis {
  float squeeze;
  float margin;
  float offset;
};

constexpr CMouseAxis kMouseX = {0.71375F, 113.0F, 400.0F};
constexpr CMouseAxis kMouseY = {0.93333334F, 20.0F, 300.0F};
constexpr float kPixelsPerUnit = 6.0F;
constexpr float kMouseReachTime = 0.05F;  // seconds in which the monster should be there

float ToWorld(int pixel, const CMouseAxis& axis) {
  return (static_cast<float>(pixel) * axis.squeeze + axis.margin - axis.offset) / kPixelsPerUnit;
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

void CPhysicsHandle::Step(unsigned milliseconds) {
  if (myWorld != nullptr) {
    myWorld->Step(static_cast<float>(milliseconds / 1000.0));
  }
}

int CPhysicsHandle::SpawnKitten() { return myWorld != nullptr ? myWorld->SpawnKitten() : 0; }

void CPhysicsHandle::PushKitten(int index, CVec2 velocity) {
  if (myWorld != nullptr) {
    myWorld->SetKittenVelocity(index, velocity);
  }
}

void CPhysicsHandle::ResetWorld() {
  if (myWorld != nullptr) {
    myWorld->SetUp();
  }
}

}  // namespace brumble
