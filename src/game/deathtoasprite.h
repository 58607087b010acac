#pragma once

#include "gfx/sprite/sprite.h"
#include "kernel/fakethread.h"

#include <cstddef>

namespace brumble {

// Takes a sprite off the screen after a while. It starts by itself, and the cooperative threads
// delete it when its time has come.
//
//   CDeathToASprite::TakeOver(sign, 2100);
class CDeathToASprite : public vask::CFakeThread, public vask::CAutoList<CDeathToASprite> {
 public:
  CDeathToASprite(vask::CSpritePtr sprite, unsigned lifetimeMs);

  void Update() override;

  // Makes one for the sprite; nobody needs to remember it.
  static void TakeOver(vask::CSpritePtr sprite, unsigned lifetimeMs);
  // Deletes all that live, sprites included: the end of the game, while pictures can still be
  // freed.
  static void DeleteAll();
  static std::size_t Count();

 private:
  vask::CSpritePtr mySprite;
  unsigned myLifetime;  // milliseconds of the thread's time
};

}  // namespace brumble
