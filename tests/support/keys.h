#pragma once

#include "events/eventbridge.h"
#include "input/keynames.h"

#include <string_view>

namespace vask::test {

// Pushes and releases a key that types the character, as the event task tells of it.
inline void TypeKey(int key, char character) {
  CEventBridge::GetSingleton().KeyDown(key, static_cast<unsigned char>(character));
  CEventBridge::GetSingleton().KeyUp(key, 0);
}

// Types the text into the widget with the focus; "^", "_" and "<" are the keys up, down and left.
inline void Type(std::string_view text) {
  for (const char c : text) {
    TypeKey(c == '^' ? kUpKey : c == '_' ? kDownKey : c == '<' ? kLeftKey : c, c);
  }
}

}  // namespace vask::test
