#include "tasks/consoleinput.h"

#include <cstdint>

namespace vask {
namespace {

constexpr std::int32_t kPageUp = 280;
constexpr std::int32_t kPageDown = 281;

}  // namespace

void CConsoleInput::OnKeyboardEvent(ui::CKeyboardEvent& event) {
  const std::int32_t key = event.GetKey();
  const bool isPageKey = key == kPageUp || key == kPageDown;
  if (!isPageKey) {
    CTextInputWidget::OnKeyboardEvent(event);
  } else if (event.GetType() == ui::IEvent::kKeyDown) {
    myPageSignal.Emit(std::int32_t{key == kPageUp ? -1 : 1});
  }
}

std::string CConsoleInput::GetTextBeforeCursor() const {
  return GetText().substr(0, static_cast<std::size_t>(GetCursor()));
}

void CConsoleInput::TypeOver(std::size_t characters, const std::string& text) {
  for (std::size_t i = 0; i < characters; ++i) {
    EraseBackward();
  }
  for (const char character : text) {
    InsertCharacter(character);
  }
}

}  // namespace vask
