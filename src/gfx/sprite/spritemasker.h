#pragma once

#include <cstdint>

namespace vask {

class CSprite;

// Applies an animator's value to a sprite (not owned).
class ISpriteMasker {
 public:
  explicit ISpriteMasker(CSprite* sprite) : mySprite(sprite) {}
  virtual ~ISpriteMasker() = default;
  virtual void Apply(float value) = 0;
  virtual CSprite* GetSprite() const { return mySprite; }

 protected:
  CSprite* mySprite;
};

// Moves the sprite from its position towards a target; a value above 1 overshoots.
class CSpriteMoveToUpdator : public ISpriteMasker {
 public:
  CSpriteMoveToUpdator(CSprite* sprite, int targetX, int targetY);
  void Apply(float value) override;

 private:
  int myTargetX;
  int myTargetY;
  int myStartX;
  int myStartY;
};

// Fades the sprite from its alpha towards a target, at every `step`th call only.
class CSpriteSetAlphaUpdator : public ISpriteMasker {
 public:
  CSpriteSetAlphaUpdator(CSprite* sprite, std::uint8_t targetAlpha, int step);
  void Apply(float value) override;

 private:
  std::uint8_t myTargetAlpha;
  std::uint8_t myStartAlpha;
  int myStep;
  int myCalls = 0;
};

}  // namespace vask
