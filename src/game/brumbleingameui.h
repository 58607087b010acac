#pragma once

#include "game/brumbletaskimpl.h"
#include "game/gamefiles.h"
#include "gfx/sprite/sprite.h"
#include "input/mouseable.h"

#include <string>

namespace brumble {

// The screens outside play: title, help and game over. The left button leads from each to the next,
// wherever the pointer is.
class CBrumbleTaskImpl::CBrumbleInGameUi : public vask::CMouseableImpl {
 public:
  enum EState : int { kNew = 0, kHelpOrGameOver = 2, kTitle = 3 };

  explicit CBrumbleInGameUi(CBrumbleTaskImpl* owner) : myOwner(owner) {}

  void ShowTitle();
  void ShowHelp();
  void ShowGameOver();
  // May start a game, which deletes this object.
  void OnMouseButtonDown(int button) override;

  EState GetState() const { return myState; }

 private:
  CBrumbleTaskImpl* myOwner;
  EState myState = kNew;
  vask::CSpritePtr myScreen;
  vask::CSpritePtr mySecondSprite;  // stays empty; for a second picture
  vask::CSpritePtr myBubbles;
  std::string myText;  // stays empty; for a text on the screen
  std::string myGameOverFile = kGameOverFile;
};

}  // namespace brumble
