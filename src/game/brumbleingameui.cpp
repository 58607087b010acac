#include "game/brumbleingameui.h"

#include "game/gfxfactory.h"
#include "input/mouse.h"
#include "utils/log/log.h"

namespace brumble {
namespace {

constexpr int kLeftButton = 1;

}  // namespace

void CBrumbleTaskImpl::CBrumbleInGameUi::ShowTitle() {
  myScreen = CGfxFactory::GetSingletonPtr()->LoadSprite(kTitleScreenFile);
  myState = kTitle;
  vask::CMouse::GetSingletonPtr()->AddDragged(this);
}

void CBrumbleTaskImpl::CBrumbleInGameUi::ShowHelp() {
  myScreen = CGfxFactory::GetSingletonPtr()->LoadSprite(kHelpScreenFile);
  myState = kHelpOrGameOver;
  myBubbles = CGfxFactory::GetSingletonPtr()->LoadSprite(kHelpBubblesFile);
}

void CBrumbleTaskImpl::CBrumbleInGameUi::ShowGameOver() {
  *vask::CLog::GetSingletonPtr() << "Gameover\n";
  myState = kHelpOrGameOver;
  myScreen = CGfxFactory::GetSingletonPtr()->LoadSprite(myGameOverFile);
  vask::CMouse::GetSingletonPtr()->AddDragged(this);
}

void CBrumbleTaskImpl::CBrumbleInGameUi::OnMouseButtonDown(int button) {
  if (button != kLeftButton) {
    return;
  }
  if (myState == kTitle) {
    ShowHelp();
  } else if (myState == kHelpOrGameOver) {
    vask::CMouse::GetSingletonPtr()->RemoveDragged(this);
    myOwner->StartNewGame();  // deletes this object
  }
}

}  // namespace brumble
