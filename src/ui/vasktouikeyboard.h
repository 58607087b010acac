#pragma once

#include "ui/keyboard.h"

namespace vask {

// A hardware keyboard: there is nothing to show or hide.
class CVaskToUiKeyboard : public ui::IKeyboard {
 public:
  void ShowKeyboard() override {}
  void HideKeyboard() override {}
};

}  // namespace vask
