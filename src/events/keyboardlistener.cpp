#include "events/keyboardlistener.h"

#include "events/eventbridge.h"

namespace vask {

IKeyboardListener::~IKeyboardListener() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveKeyboardListener(this);
  }
}

}  // namespace vask
