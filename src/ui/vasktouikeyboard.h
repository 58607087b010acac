#pragma once

#include "ui/keyboard.h"

namespace vask {

// A keyboard of the desk is always there: nothing is shown or hidden.
class CVaskToUiKeyboard : public ui::IKeyboard {
 public:
  void ShowKeyboard() override {}
  void HideKeyboard() override {}
};

}  // namespace vask
