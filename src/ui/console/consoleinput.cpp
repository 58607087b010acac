#include "ui/console/consoleinput.h"

#include "input/keynames.h"

#include <algorithm>
#include <cstdint>

namespace vask {
namespace {

constexpr std::int32_t kCursorWidth = 2;  // pixels

constexpr bool IsControl(unsigned char character) { return character < 32 || character == 127; }

}  // namespace

void CConsoleInput::OnKeyboardEvent(ui::CKeyboardEvent& event) {
  if (event.GetType() != ui::IEvent::kKeyDown) {
    return CTextInputWidget::OnKeyboardEvent(event);
  }
  switch (event.GetKey()) {
    case kPageUpKey:
      return myPageSignal.Emit(std::int32_t{-1});
    case kPageDownKey:
      return myPageSignal.Emit(std::int32_t{1});
    case kKeypadEnterKey:
      return GetKeySignal(kReturn).Emit();
    default:
      CTextInputWidget::OnKeyboardEvent(event);
  }
}

void CConsoleInput::InsertCharacter(char character) {
  if (!IsControl(static_cast<unsigned char>(character))) {
    CTextInputWidget::InsertCharacter(character);
  }
}

// Scrolls no further than the cursor needs, and leaves no space after the end of the text.
std::int32_t CConsoleInput::FirstToShow(std::int32_t current) const {
  const std::int32_t cursor = std::min(GetCursor(), Length());
  return std::min(
      {std::max(current, FirstWithCursorAt(cursor)), cursor, FirstWithCursorAt(Length())});
}

std::int32_t CConsoleInput::FirstWithCursorAt(std::int32_t position) const {
  const std::int32_t start = WidthBefore(position) + kCursorWidth - GetRect().w;
  std::int32_t first = position;
  while (first > 0 && WidthBefore(first - 1) >= start) {
    --first;
  }
  return first;
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
