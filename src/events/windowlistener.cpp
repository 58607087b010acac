#include "events/windowlistener.h"

#include "events/eventbridge.h"

namespace vask {

IWindowListener::~IWindowListener() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveWindowListener(this);
  }
}

}  // namespace vask
