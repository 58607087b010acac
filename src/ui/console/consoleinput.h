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
  // Replaces that many characters before the cursor by the text.
  void TypeOver(std::size_t characters, const std::string& text);
  // Carries an int32_t: -1 for page up, 1 for page down.
  css::CSignal& GetPageSignal() { return myPageSignal; }

 protected:
  std::int32_t FirstToShow(std::int32_t current) const override;

 private:
  // The first visible character when a cursor at `position` is at the right edge.
  std::int32_t FirstWithCursorAt(std::int32_t position) const;

  css::CSignal myPageSignal;
};

}  // namespace vask
