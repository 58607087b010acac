#pragma once

#include "utils/timer/timer.h"

#include <array>
#include <cstdint>
#include <optional>

namespace vask::ui {

// Repeats held keys: after a delay, each of them sends a press again and again.
class CKeyRepeater {
 public:
  // A press of a held key starts its delay again. Code 0 and keys outside the table are not
  // repeated.
  void Press(std::int32_t key, std::uint8_t character);
  void Release(std::int32_t key);
  void ReleaseAll();
  // Sends the due presses to the keyboard receiver, which may change what is held.
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
  unsigned myLastCheck = 0;  // milliseconds, as the next two
  unsigned myInterval = 25;
  unsigned myDelay = 650;
  int myHeldKeys = 0;
};

}  // namespace vask::ui
