#include "events/mouselistener.h"

#include "events/eventbridge.h"

namespace vask {

IMouseListener::~IMouseListener() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveMouseListener(this);
  }
}

void IMouseListener::OnMouseMoveRelative(int, int) {}

}  // namespace vask
