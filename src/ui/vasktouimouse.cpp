#include "ui/vasktouimouse.h"

#include "events/eventbridge.h"

namespace vask {

void CVaskToUiMouse::HideCursor() { CEventBridge::GetSingletonPtr()->HideCursor(); }

void CVaskToUiMouse::ShowCursor() { CEventBridge::GetSingletonPtr()->ShowCursor(); }

void CVaskToUiMouse::ChangeCursor(std::int32_t type) {
  CEventBridge::GetSingletonPtr()->ChangeCursor(type);
}

void CVaskToUiMouse::MoveTo(ui::SPoint position) {
  myPreviousPosition = myPosition;
  myPosition = position;
}

}  // namespace vask
