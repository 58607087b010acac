#include "ui/consolewidget.h"

#include <algorithm>
#include <vector>

#include "gfx/fontalign.h"
#include "gfx/lotsatextsprite.h"
#include "gfx/screenlayer.h"
#include "ui/loglistenerforconsole.h"

namespace vask::ui {
namespace {

constexpr CRect<int> kRect{0, 0, 400, 180};
constexpr std::int32_t kWheelUp = 8;
constexpr std::int32_t kWheelDown = 16;
constexpr std::int32_t kLinesPerNotch = 3;

// The fonts of all console widgets that live, the youngest at the end: it is the one in use.
std::vector<CFont*>& Fonts() {
  static auto& fonts = *new std::vector<CFont*>;
  return fonts;
}

void UseYoungestFont() {
  if (CLogListenerForConsole* log = CLogListenerForConsole::PeekSingletonPtr()) {
    log->SetFont(Fonts().empty() ? nullptr : Fonts().back());
  }
}

}  // namespace

CConsoleWidget::CConsoleWidget() : CConsoleWidget(nullptr, {}) {}

CConsoleWidget::CConsoleWidget(CWidget* parent, const std::string& name)
    : CWidget(parent, kRect, false, name, {}), myFont(LoadFont("system")) {
  myFont->SetAlign(IFontAlign::kLeft);
  Fonts().push_back(myFont.get());
  UseYoungestFont();
  auto* const view = new CLotsATextSprite(kRect.w, kRect.h);
  const CSpritePtr sprite(view);
  view->SetDrawer(CLogListenerForConsole::PeekSingletonPtr());
  view->SetParent(CScreenLayer::GetSingletonPtr());
  SetSprite(sprite);
  SetLayout("parent.x", "parent.y", "parent.w", "parent.h - 20");
}

CConsoleWidget::~CConsoleWidget() {
  std::erase(Fonts(), myFont.get());
  UseYoungestFont();
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
  if (auto* view = dynamic_cast<CLotsATextSprite*>(GetSprite().Get())) {
    view->ScrollBy(pixels);
  }
}

}  // namespace vask::ui
