#pragma once

#include "ui/textinputwidget.h"

#include <cstddef>
#include <string>

namespace vask {

// The input line of the console. A line that is too long for it scrolls with the cursor; the Enter
// key of the number pad does what Return does; control characters are never typed. Page up and Page
// down scroll the log above it.
class CConsoleInput : public ui::CTextInputWidget {
 public:
  using CTextInputWidget::CTextInputWidget;

  void OnKeyboardEvent(ui::CKeyboardEvent& event) override;
  void InsertCharacter(char character) override;

  std::string GetTextBeforeCursor() const;
  // Types the text over so many characters before the cursor.
  void TypeOver(std::size_t characters, const std::string& text);
  // Carries -1 for a page up, 1 for a page down.
  css::CSignal& GetPageSignal() { return myPageSignal; }

 protected:
  std::int32_t FirstToShow(std::int32_t current) const override;

 private:
  // The first character that still shows when the cursor at a position is at the right edge.
  std::int32_t FirstWithCursorAt(std::int32_t position) const;

  css::CSignal myPageSignal;
};

}  // namespace vask
