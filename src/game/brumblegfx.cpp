#include "game/brumblegfx.h"

#include "game/gamelogic.h"
#include "game/gfxfactory.h"
#include "game/physics/arena.h"
#include "game/physics/screentransform.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace brumble {
namespace {

constexpr int kKittenHandle = 8;
constexpr float kDegreesPerRadian = 57.29578F;
constexpr float kFullTurn = 360.0F;
constexpr float kSlowSpin = 5.0F;
constexpr float kFastSpin = 10.0F;
constexpr float kThinHealth = 1500.0F;
constexpr float kBaldHealth = 0.0F;
constexpr int kBald = 3;
// A sprite out of view waits here instead, in the last corner of the screen.
constexpr SScreenPoint kParkingPlace = {798, 598};
constexpr std::array<const char*, 3> kSpinEndings = {".xml", "_spinning_easy.xml",
                                                     "_spinning_hard.xml"};

int SpinOf(float angularVelocity) {
  const float speed = std::abs(angularVelocity);
  if (speed > kFastSpin) {
    return 2;
  }
  return speed > kSlowSpin ? 1 : 0;
}

bool IsOutOfView(const vask::CRect<int>& rect) {
  return rect.x + rect.w < 0 || rect.x > kScreenWidth || rect.y > kScreenHeight ||
         rect.y + rect.h < 0;
}

}  // namespace

CBrumbleGfx::CBrumbleGfx(CGameLogic* gameLogic) : myGameLogic(gameLogic) { myHealth = kFullHealth; }

bool CBrumbleGfx::IsKitten() const { return myIndex >= kFirstKittenIndex; }

void CBrumbleGfx::Update(float x, float y, float angle, float halfWidth, float /*halfHeight*/,
                         std::int32_t /*shape*/, std::int32_t /*look*/) {
  LoadFirstSprite();
  if (myHasPosition && x == myPosition.x && y == myPosition.y) {
    return;
  }
  myHasPosition = true;
  myPosition = {x, y};
  myHalfWidth = halfWidth;
  if (IsKitten()) {
    myRotation = kFullTurn - angle * kDegreesPerRadian;
    if (myGameLogic != nullptr) {
      myGameLogic->SetKittenPosition(myIndex, myPosition);
    }
  }
  PlaceSprite();
}

void CBrumbleGfx::LoadFirstSprite() {
  if (mySprite || myTriedToLoad || myIndex < 0) {
    return;
  }
  myTriedToLoad = true;
  mySprite = CGfxFactory::GetSingletonPtr()->LoadSpriteByHandle(std::min(myIndex, kKittenHandle));
}

// Turns first: a turned picture is larger, and it is the turned one that is centred.
void CBrumbleGfx::PlaceSprite() {
  if (!mySprite) {
    return;
  }
  if (IsKitten()) {
    mySprite->SetRotation(myRotation);
  }
  const SVec2 centre = ToScreen(myPosition);
  vask::CRect<int> rect = mySprite->GetRect();
  rect.x = static_cast<int>(centre.x - 0.5F * static_cast<float>(rect.w));
  rect.y = static_cast<int>(centre.y - 0.5F * static_cast<float>(rect.h));
  const SScreenPoint place = IsOutOfView(rect) ? kParkingPlace : SScreenPoint{rect.x, rect.y};
  mySprite->SetPosition(place.x, place.y);
}

int CBrumbleGfx::SetIndex(int index) {
  if (myIndex == -1) {
    myIndex = index;
    return index;
  }
  const int old = myIndex;
  if (old != index && myGameLogic != nullptr) {
    myGameLogic->SwapKittenRecords(old, index);
  }
  myIndex = index;
  return old;
}

void CBrumbleGfx::OnImpact(float impulseSquared, IPhysicsGfxBridge* other) {
  if (myGameLogic != nullptr) {
    const int otherIndex = other != nullptr ? other->GetIndex() : 0;
    myGameLogic->OnKittenImpact(myIndex, impulseSquared, myPosition, otherIndex, myHealth);
  }
}

void CBrumbleGfx::SetAngularVelocity(float angularVelocity) {
  myAngularVelocity = angularVelocity;
  if (!IsKitten()) {
    return;
  }
  const bool spinChanged = UpdateSpin();
  const bool hairChanged = UpdateHair();
  if (!(spinChanged || hairChanged) || !mySprite) {
    return;
  }
  mySprite = CGfxFactory::GetSingletonPtr()->LoadSprite(KittenFile(myHair, mySpin));
  myTriedToLoad = false;  // a kitten whose new look is missing gets its first one back
  PlaceSprite();
}

bool CBrumbleGfx::UpdateSpin() {
  const int spin = SpinOf(myAngularVelocity);
  const bool changed = spin != mySpin;
  mySpin = spin;
  return changed;
}

// A kitten may lose all its hair at once.
bool CBrumbleGfx::UpdateHair() {
  const int old = myHair;
  if (myHealth < kThinHealth && myHair == 1) {
    myHair = 2;
  }
  if (myHealth < kBaldHealth && myHair == 2) {
    myHair = kBald;
  }
  return myHair != old;
}

void CBrumbleGfx::OnDamaged() {
  const bool counts =
      myAngularVelocity + myHealth >= 0.0F || std::abs(myAngularVelocity) > kFastSpin;
  if (counts && myGameLogic != nullptr) {
    myGameLogic->OnKittenSpin(myIndex, myPosition, myAngularVelocity, myHealth);
  }
}

std::string CBrumbleGfx::KittenFile(int hair, int spin) {
  return "data/gfx/kitten_0" + std::to_string(hair) + kSpinEndings[static_cast<std::size_t>(spin)];
}

}  // namespace brumble
