#include "ui/eventbase.h"

#include "ui/receivers.h"

namespace vask::ui {

IEventBase::~IEventBase() { ForgetReceiver(this); }

void IEventBase::OnMouseEvent(CMouseEvent&) {}

void IEventBase::OnKeyboardEvent(CKeyboardEvent&) {}

void IEventBase::OnFocusEvent(CFocusEvent&) {}

}  // namespace vask::ui
