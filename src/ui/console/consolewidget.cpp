#include "ui/console/consolewidget.h"

#include "gfx/sprite/screenlayer.h"
#include "gfx/text/fontalign.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/lotsatextsprite.h"
#include "input/buttons.h"
#include "ui/console/loglistenerforconsole.h"
#include "ui/widgetfactory.h"

#include <algorithm>

namespace vask::ui {
namespace {

const CWidgetRegistrar<CConsoleWidget> theRegistrar("CConsoleWidget");

constexpr CRect<int> kRect{0, 0, 400, 180};
constexpr std::int32_t kLinesPerNotch = 3;

}  // namespace

CConsoleWidget::CConsoleWidget() : CConsoleWidget(nullptr, {}) {}

CConsoleWidget::CConsoleWidget(CWidget* parent, const std::string& name)
    : CWidget(parent, kRect, false, name, {}),
      myFont(LoadFont("system")),
      myView(CLogListenerForConsole::GetSingletonPtr()->GetLines()) {
  SetLayout("parent.x", "parent.y", "parent.w", "parent.h - 20");
  myFont->SetAlign(IFontAlign::kLeft);
  myView.SetWidth(GetRect().w);  // first, so that the whole log is measured only once
  myView.SetFont(myFont.get());
  CLogListenerForConsole::GetSingletonPtr()->AddView(&myView);
  auto* const view = new CLotsATextSprite(kRect.w, kRect.h);
  myText = CSpritePtr(view);
  view->SetDrawer(&myView);
  view->SetParent(CScreenLayer::GetSingletonPtr());
  SetSprite(myText);
}

CConsoleWidget::~CConsoleWidget() {
  if (CLogListenerForConsole* log = CLogListenerForConsole::PeekSingletonPtr()) {
    log->RemoveView(&myView);
  }
  static_cast<CLotsATextSprite&>(*myText).SetDrawer(nullptr);
}

void CConsoleWidget::OnMouseEvent(CMouseEvent& event) {
  if (event.GetType() != IEvent::kMouseButtonDown) {
    return;
  }
  if (event.GetButtons() == kWheelUp) {
    ScrollLines(-kLinesPerNotch);
  } else if (event.GetButtons() == kWheelDown) {
    ScrollLines(kLinesPerNotch);
  }
}

void CConsoleWidget::ScrollLines(std::int32_t lines) { ScrollBy(lines * myFont->GetLineHeight()); }

void CConsoleWidget::ScrollPages(std::int32_t pages) {
  ScrollBy(pages * std::max(GetRect().h - myFont->GetLineHeight(), myFont->GetLineHeight()));
}

void CConsoleWidget::ScrollBy(std::int32_t pixels) {
  if (CLotsATextSprite* sprite = TextSprite()) {
    sprite->ScrollBy(pixels);
  }
}

CLotsATextSprite* CConsoleWidget::TextSprite() const {
  return dynamic_cast<CLotsATextSprite*>(GetSprite().Get());
}

}  // namespace vask::ui
