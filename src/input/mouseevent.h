#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vask {

// One mouse event as a record file keeps it, a line for each; docs/files.md shows the format.
struct SMouseEvent {
  enum EType : std::int32_t { kMove = 0, kButtonUp = 1, kButtonDown = 2 };

  // The line without its end.
  std::string ToLine() const;
  // Nothing for a line that is no event.
  static std::optional<SMouseEvent> FromLine(const std::string& line);

  std::uint32_t time = 0;  // of the global clock, in milliseconds
  EType type = kMove;
  std::int32_t x = 0;  // window pixels, of a move
  std::int32_t y = 0;
  std::uint32_t button = 0;  // of a button: see buttons.h
};

// The seed in the first line of a record file; 0 when the line holds no number. Of a greater number
// the low 32 bits count, as for the seed that the recorder has set.
std::int32_t SeedFromLine(const std::string& line);

}  // namespace vask
