#pragma once

#include <array>
#include <cstdint>

namespace vask::systemfont {

// The cell of every glyph, in pixels. The strokes use the left five columns; the last column is the
// gap to the next glyph and the place of the shadow.
inline constexpr int kCellWidth = 6;
inline constexpr int kCellHeight = 12;
// Above the strokes of every glyph.
inline constexpr int kTopMargin = 2;

inline constexpr int kStrokeColumns = 5;
inline constexpr int kStrokeRows = 9;

// Rows from the top, seven above the baseline and two below it; bit 4 is the left column.
using Glyph = std::array<std::uint8_t, kStrokeRows>;

inline constexpr int kFirstCharacter = 32;
inline constexpr int kLastCharacter = 126;

// The glyph of a character; a hollow box for one that the font does not have.
const Glyph& GlyphOf(int character);

}  // namespace vask::systemfont
