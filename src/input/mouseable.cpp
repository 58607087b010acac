#include "input/mouseable.h"

#include "input/mouse.h"

namespace vask {

IMouseable::~IMouseable() {
  if (CMouse* mouse = CMouse::PeekSingletonPtr()) {
    mouse->ForgetMouseable(this);
  }
}

}  // namespace vask
