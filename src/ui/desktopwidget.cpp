#include "ui/desktopwidget.h"

#include "events/eventbridge.h"
#include "input/buttons.h"
#include "ui/receivers.h"
#include "ui/widgetfactory.h"

#include <algorithm>

namespace vask::ui {
namespace {

// Returns the one desktop, which does not belong to the caller.
class CDesktopFactoryMaker : public IGenericMaker {
 public:
  CWidget* Create() override { return CDesktopWidget::GetSingletonPtr(); }
};

const CWidgetRegistrar<CDesktopWidget, CDesktopFactoryMaker> theRegistrar("CDesktopWidget");

// Moves the span of a child into that of the desktop.
int FitInto(int position, int extent, int desktopPosition, int desktopExtent) {
  const double end = 1.0 * desktopPosition + desktopExtent;
  const int raised = std::max(position, desktopPosition);
  return 1.0 * raised + extent > end ? ToPixels(end - extent) : raised;
}

}  // namespace

// Keeps the desktop in memory while it dispatches something.
class CDesktopWidget::CDispatch {
 public:
  explicit CDispatch(CDesktopWidget& desktop) : myDesktop(&desktop) { ++desktop.myDispatches; }
  ~CDispatch() {
    if (--myDesktop->myDispatches == 0 && myDesktop->myIsForgotten) {
      delete myDesktop;
    }
  }
  CDispatch(const CDispatch&) = delete;
  CDispatch& operator=(const CDispatch&) = delete;

 private:
  CDesktopWidget* myDesktop;
};

CDesktopWidget::CDesktopWidget() : myKeyRepeater(std::make_unique<CKeyRepeater>()) {
  const CEventBridge& bridge = CEventBridge::GetSingleton();
  CWidget::SetRect({0, 0, bridge.GetWidth(), bridge.GetHeight()});
}

void CDesktopWidget::DeleteSingleton() {
  CDesktopWidget* desktop = ReleaseSingleton();
  if (desktop == nullptr) {
    return;
  }
  ClearReceivers();
  desktop->myIsForgotten = true;
  desktop->myKeyRepeater->ReleaseAll();
  if (desktop->myDispatches == 0) {
    delete desktop;
  }
}

void CDesktopWidget::HandleEvent(IEvent& event) {
  const CDispatch dispatch(*this);
  if (auto* mouseEvent = dynamic_cast<CMouseEvent*>(&event)) {
    HandleMouseEvent(*mouseEvent);
  } else if (auto* keyboardEvent = dynamic_cast<CKeyboardEvent*>(&event)) {
    HandleKeyboardEvent(*keyboardEvent);
  } else {
    CWidget::HandleEvent(event);
  }
}

void CDesktopWidget::HandleMouseEvent(CMouseEvent& event) {
  if (event.IsRouted()) {
    SendToMouseCapture(event);
  }
  if (!myIsForgotten) {
    CWidget::HandleEvent(event);
  }
  const bool isClick =
      event.GetType() == IEvent::kMouseButtonDown && (event.GetButtons() & kLeftButton) != 0;
  if (isClick && !myIsForgotten) {
    MoveFocus(event.GetPosition());
  }
}

void CDesktopWidget::HandleKeyboardEvent(CKeyboardEvent& event) {
  if (event.GetType() == IEvent::kKeyDown) {
    myKeyRepeater->Press(event.GetKey(), event.GetCharacter());
  } else if (event.GetType() == IEvent::kKeyUp) {
    myKeyRepeater->Release(event.GetKey());
  }
  SendToKeyboardReceiver(event);
}

// To the widget under a click, or to none.
void CDesktopWidget::MoveFocus(SPoint point) {
  CFocusEvent request(IEvent::kFocusGained, point);
  CWidget::HandleEvent(request);
  CWidget* loser = GetFocus();
  if (request.IsHandled() || loser == nullptr || myIsForgotten) {
    return;
  }
  if (!loser->IgnoresEvent(IEvent::kFocusLost)) {
    CFocusEvent lost(IEvent::kFocusLost);
    loser->OnFocusEvent(lost);
  }
  if (!myIsForgotten) {
    SetFocus(nullptr);
  }
}

void CDesktopWidget::Resize(SSize size) {
  const CDispatch dispatch(*this);
  CWidget::Resize(size);
}

CRect<int> CDesktopWidget::FitChildRect(const CRect<int>& rect) const {
  const CRect<int>& own = GetRect();
  return {FitInto(rect.x, rect.w, own.x, own.w), FitInto(rect.y, rect.h, own.y, own.h), rect.w,
          rect.h};
}

bool CDesktopWidget::HasWidgetAt(SPoint point) {
  const CDesktopWidget* desktop = PeekSingletonPtr();
  if (desktop == nullptr || !desktop->GetRect().Contains(point.x, point.y)) {
    return false;
  }
  return std::ranges::any_of(desktop->GetChildren(), [=](const CWidget* widget) {
    return widget->GetRect().Contains(point.x, point.y) &&
           !widget->IgnoresEvent(IEvent::kMouseButtonDown);
  });
}

void CDesktopWidget::UpdateKeyRepeat() {
  const CDispatch dispatch(*this);
  myKeyRepeater->Update();
}

}  // namespace vask::ui
