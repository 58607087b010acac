#pragma once

#include "utils/timer/timer.h"

#include <array>
#include <cstdint>
#include <optional>

namespace vask::ui {

// Types on for the keys that are held: after a delay, each of them presses itself again and again.
class CKeyRepeater {
 public:
  // A key that is held already begins anew. Code 0 and keys outside the table are not repeated.
  void Press(std::int32_t key, std::uint8_t character);
  void Release(std::int32_t key);
  void ReleaseAll();
  // Sends the presses that are due to the keyboard receiver. That may change what is held.
  void Update();

 private:
  static constexpr std::size_t kKeys = 324;

  struct SPress {
    unsigned time;  // in milliseconds of the timer
    std::uint8_t character;
  };

  // Null for a key that is not repeated.
  std::optional<SPress>* SlotOf(std::int32_t key);

  std::array<std::optional<SPress>, kKeys> myPresses;
  CTimer myTimer;
  unsigned myLastCheck = 0;  // in milliseconds, as the two below
  unsigned myInterval = 25;
  unsigned myDelay = 650;
  int myHeldKeys = 0;
};

}  // namespace vask::ui
