#pragma once

#include <cstdint>

namespace brumble {

enum class EInput : std::uint8_t {
  kFrame,   // an update of the task
  kPause,   // of the task
  kResume,  // of the task
  kKitten,  // an extra kitten drops
};

// What comes in to a game from outside, at one moment. The game knows nothing else of the world.
struct SInput {
  EInput kind = EInput::kFrame;
  unsigned time = 0;     // the global clock, milliseconds
  unsigned appTime = 0;  // the application timer, which stands without the focus
  int pointerX = 0;      // pixels of the window
  int pointerY = 0;

  bool operator==(const SInput&) const = default;
};

}  // namespace brumble
