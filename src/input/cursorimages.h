#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace vask {

// A built-in cursor, drawn in the top-left part of a cell of 32 by 32: "X" is black, "." is white
// and a blank, or what a row leaves out, is transparent.
struct SCursorImage {
  static constexpr int kSide = 32;

  std::span<const std::string_view> rows;
  int hotX;
  int hotY;
};

// The image of a cursor type (1 arrow, 2 cross, 3 text, 4 hand, 5 busy, 6 to 9 the resize arrows);
// null for any other type.
const SCursorImage* GetCursorImage(int type);

// A cursor as SDL takes it: one bit per pixel, the leftmost in the highest bit. Black pixels are
// set in both planes, white ones in the mask only.
struct SCursorPlanes {
  static constexpr int kBytes = SCursorImage::kSide * SCursorImage::kSide / 8;

  std::array<std::uint8_t, kBytes> data;
  std::array<std::uint8_t, kBytes> mask;
};
SCursorPlanes MakeCursorPlanes(const SCursorImage& image);

}  // namespace vask
