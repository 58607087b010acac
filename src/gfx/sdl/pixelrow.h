#pragma once

#include <cstdint>

// Blending of rows of 32-bit pixels. The top byte is the alpha, the others are the three colours,
// in the same order in source and target. The rows do not overlap.
namespace vask::sdl {

inline constexpr std::uint32_t kAlphaBits = 0xFF000000;

// Blends as SDL does: per colour, target + ((source - target) * alpha >> 8), rounded down; alpha
// 255 copies. The target's top byte is kept.
void BlendRow(const std::uint32_t* source, std::uint32_t* target, int count);

// The "over" operator of Porter and Duff ("Compositing Digital Images", 1984), with straight alpha
// in source and target.
void OverRow(const std::uint32_t* source, std::uint32_t* target, int count);

// From straight to premultiplied alpha, and back.
void PremultiplyRow(std::uint32_t* pixels, int count);
void UnpremultiplyRow(std::uint32_t* pixels, int count);

}  // namespace vask::sdl
