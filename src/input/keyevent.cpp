#include "input/keyevent.h"

#include "input/keyboard.h"

namespace vask {

IKeyEvent::~IKeyEvent() {
  if (CKeyboard* keyboard = CKeyboard::PeekSingletonPtr()) {
    keyboard->RemoveKeyEvent(this);
  }
}

}  // namespace vask
