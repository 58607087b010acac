#include "ui/buttonwidget.h"

#include "ui/gfxhandler.h"
#include "ui/receivers.h"
#include "ui/widgetfactory.h"

namespace vask::ui {
namespace {

const CWidgetRegistrar<CButtonWidget> theRegistrar("CButtonWidget");

constexpr unsigned kDoubleClickTime = 300;  // in milliseconds

}  // namespace

CButtonWidget::CButtonWidget() : CButtonWidget(nullptr, {}, false, {}, {}) {}

CButtonWidget::CButtonWidget(CWidget* parent, const CRect<int>& rect, bool relative,
                             const std::string& name, const CSpritePtr& sprite)
    : CWidget(parent, rect, relative, name, sprite) {
  SetResizeMode(kKeepCentre);
}

void CButtonWidget::OnMouseEvent(CMouseEvent& event) {
  switch (event.GetType()) {
    case IEvent::kMouseMove:
      return OnMove(event.GetPosition());
    case IEvent::kMouseOut:
      myPressed = false;
      return Play("mouse_out");
    case IEvent::kMouseOver:
      return Play("mouse_over");
    case IEvent::kMouseButtonDown:
      return OnPress(event);
    case IEvent::kMouseButtonUp:
      return OnRelease(event.GetButtons());
    default:
      return;
  }
}

void CButtonWidget::OnMove(SPoint pointer) {
  if (myDragging) {
    const SPoint delta = pointer + myDragOffset - SPoint{GetRect().x, GetRect().y};
    myDragSignal.Emit(delta.x, delta.y);
  }
}

// While it drags, the button hears of a press through the capture and once more when it is routed.
// That makes no double click.
void CButtonWidget::OnPress(const CMouseEvent& event) {
  const std::int32_t buttons = event.GetButtons();
  const bool isFirstHearing = !myDragging;
  if ((buttons & myClickButtons) != 0) {
    Play("mouse_button_down");
    myPressed = true;
  }
  if (myDraggable && (buttons & myDragButtons) != 0) {
    StartDragging(event.GetPosition());
  }
  if (myDoubleClickEnabled && isFirstHearing && (buttons & myDoubleClickButtons) != 0) {
    DetectDoubleClick();
  }
}

// The click comes last, since a slot may delete the button.
void CButtonWidget::OnRelease(std::int32_t buttons) {
  const bool isClick = myPressed && (buttons & myClickButtons) != 0;
  myPressed = false;
  if (myDraggable && (buttons & myDragButtons) != 0) {
    StopDragging();
  }
  if (isClick) {
    Play("mouse_button_up");
    myClickSignal.Emit();
  }
}

void CButtonWidget::SetDraggable(bool on) {
  myDraggable = on;
  if (!on) {
    StopDragging();
  }
}

void CButtonWidget::StartDragging(SPoint pointer) {
  myDragging = true;
  myDragOffset = SPoint{GetRect().x, GetRect().y} - pointer;
  AddMouseCapture(this);
}

void CButtonWidget::StopDragging() {
  myDragging = false;
  RemoveMouseCapture(this);
}

void CButtonWidget::DetectDoubleClick() {
  if (!myFirstClickSeen) {
    myDoubleClickTimer.Reset();
    myFirstClickSeen = true;
    return;
  }
  myFirstClickSeen = false;
  if (myDoubleClickTimer.GetTime() < kDoubleClickTime) {
    myDoubleClickSignal.Emit();
  }
}

void CButtonWidget::Play(const std::string& animation) {
  GetGfxHandler().PlayAnimation(GetSprite(), animation);
}

}  // namespace vask::ui
