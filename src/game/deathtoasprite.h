#pragma once

#include "gfx/sprite/sprite.h"
#include "kernel/fakethread.h"

#include <cstddef>

namespace brumble {

// Removes a sprite from the screen after a while: a cooperative thread that starts itself and is
// deleted when its time is up.
class CDeathToASprite : public vask::CFakeThread, public vask::CAutoList<CDeathToASprite> {
 public:
  CDeathToASprite(vask::CSpritePtr sprite, unsigned lifetimeMs);

  void Update() override;

  // Makes one for the sprite; it deletes itself.
  static void TakeOver(vask::CSpritePtr sprite, unsigned lifetimeMs);
  // Deletes all of them, sprites included: for the end of the game, while pictures can still be
  // freed.
  static void DeleteAll();
  static std::size_t Count();

 private:
  vask::CSpritePtr mySprite;
  unsigned myLifetime;  // milliseconds of the thread's time
};

}  // namespace brumble
