#pragma once

#include "game/brumbletaskimpl.h"
#include "gfx/sprite.h"
#include "input/mouseable.h"

namespace brumble {

// The screens outside play: title, help and game over. The left button leads from each to the next;
// the object hears every press, wherever the pointer is.
class CBrumbleTaskImpl::CBrumbleInGameUi : public vask::CMouseableImpl {
 public:
  enum EState : int { kNew = 0, kHelpOrGameOver = 2, kTitle = 3 };

  explicit CBrumbleInGameUi(CBrumbleTaskImpl* owner) : myOwner(owner) {}

  void ShowTitle();
  void ShowHelp();
  void ShowGameOver();
  // May start a game, and with that delete this object.
  void OnMouseButtonDown(int button) override;

  EState GetState() const { return myState; }

 private:
  CBrumbleTaskImpl* myOwner;
  EState myState = kNew;
  vask::CSpritePtr myScreen;
  vask::CSpritePtr myBubbles;
};

}  // namespace brumble
