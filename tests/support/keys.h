#pragma once

#include "input/keynames.h"
#include "ui/desktopwidget.h"
#include "ui/event.h"
#include "ui/receivers.h"
#include "ui/textinputwidget.h"

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

inline ui::CWidget& FrontWindow() {
  return *ui::CDesktopWidget::GetSingleton().GetChildren().front();
}
// Of a console in front.
inline ui::CWidget* ConsoleLine() {
  return FrontWindow().GetChildren().front()->GetChildren().front();
}
// Types into that line and returns what it shows then; an empty text without one.
inline std::string TypeIntoConsole(std::string_view text) {
  SetFocus(ConsoleLine());
  Type(text);
  const auto* line = dynamic_cast<ui::CTextInputWidget*>(ui::GetFocus());
  return line != nullptr ? line->GetText() : "";
}

}  // namespace vask::test
