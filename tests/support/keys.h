#pragma once

#include "input/keynames.h"
#include "ui/desktopwidget.h"
#include "ui/event.h"

#include <string_view>

namespace vask::test {

// Pushes and releases a key that types the character into the widget with the focus.
inline void TypeKey(int key, char character) {
  for (const int type : {ui::IEvent::kKeyDown, ui::IEvent::kKeyUp}) {
    ui::CKeyboardEvent event(type, key, static_cast<std::uint8_t>(character));
    ui::CDesktopWidget::GetSingletonPtr()->HandleEvent(event);
  }
}

// Types the text; "^", "_" and "<" are the keys up, down and left.
inline void Type(std::string_view text) {
  for (const char c : text) {
    TypeKey(c == '^' ? kUpKey : c == '_' ? kDownKey : c == '<' ? kLeftKey : c, c);
  }
}

}  // namespace vask::test
