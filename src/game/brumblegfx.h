#pragma once

#include "game/physics/geometry.h"
#include "game/physics/physicsgfxbridge.h"
#include "gfx/sprite/sprite.h"

#include <string>

namespace brumble {

class CGameLogic;

// The sprite of a physics body: places and turns it, changes a kitten's look with its spin and its
// health, and reports to the rules. Works without a sprite, and without rules.
class CBrumbleGfx : public IPhysicsGfxBridge {
 public:
  // `gameLogic` may be null.
  explicit CBrumbleGfx(CGameLogic* gameLogic);

  // Does nothing more when the body has not moved since the last call, even if it has turned.
  void Update(float x, float y, float angle, float halfWidth, float halfHeight, std::int32_t shape,
              std::int32_t look) override;
  // When the index changes, the rules' record changes with it.
  int SetIndex(int index) override;
  void OnImpact(float impulseSquared, IPhysicsGfxBridge* other) override;
  int GetIndex() const override { return myIndex; }
  void SetAngularVelocity(float angularVelocity) override;
  void OnDamaged() override;

  vask::CSprite* GetSprite() const { return mySprite.Get(); }

  // The sprite file of a kitten: hair 1 to 3, spin 0 to 2.
  static std::string KittenFile(int hair, int spin);

 private:
  bool IsKitten() const;
  void LoadFirstSprite();
  bool UpdateSpin();
  bool UpdateHair();
  void PlaceSprite();

  CGameLogic* myGameLogic;
  vask::CSpritePtr mySprite;
  int myIndex = -1;
  SVec2 myPosition;          // the last that was reported
  float myHalfWidth = 0.0F;  // the last that was reported; not used
  float myAngularVelocity = 0.0F;
  float myRotation = 0.0F;  // degrees
  int mySpin = 0;           // 0 slow, 1 spinning, 2 spinning fast
  int myHair = 1;           // 1 full, 2 thinning, 3 bald

  bool myHasPosition = false;  // the first report always places the sprite, also at the origin
  bool myTriedToLoad = false;  // a file that cannot be read is not read again at every step
};

}  // namespace brumble
