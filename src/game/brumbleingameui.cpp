#include "game/brumbleingameui.h"

#include "game/gfxfactory.h"
#include "input/buttons.h"
#include "input/mouse.h"
#include "ui/desktopwidget.h"
#include "utils/log/log.h"

namespace brumble {
namespace {

// A widget over the screen takes its own clicks. It may get them before or after the screen does,
// so the position decides, not whether the click has been handled.
bool IsPointerOverWidget() {
  const vask::CMouse& mouse = *vask::CMouse::GetSingletonPtr();
  return vask::ui::CDesktopWidget::HasWidgetAt({mouse.GetPointerX(), mouse.GetPointerY()});
}

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
  if (button != vask::kLeftButton || IsPointerOverWidget()) {
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
