#pragma once

#include <cstddef>
#include <string>

#include "ui/textinputwidget.h"

namespace vask {

// The input line of the console. Page up and Page down scroll the log above it.
class CConsoleInput : public ui::CTextInputWidget {
 public:
  using CTextInputWidget::CTextInputWidget;

  void OnKeyboardEvent(ui::CKeyboardEvent& event) override;

  std::string GetTextBeforeCursor() const;
  // Types the text over so many characters before the cursor.
  void TypeOver(std::size_t characters, const std::string& text);
  // Carries -1 for a page up, 1 for a page down.
  css::CSignal& GetPageSignal() { return myPageSignal; }

 private:
  css::CSignal myPageSignal;
};

}  // namespace vask
