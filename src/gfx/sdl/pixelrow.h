#pragma once

#include <cstdint>

// Blending of rows of 32-bit pixels whose alpha is the top byte and whose other bytes are the three
// colours, in the same order in source and target. The rows do not overlap.
namespace vask::sdl {

inline constexpr std::uint32_t kAlphaBits = 0xFF000000;

// The way SDL blends onto a target: per colour, target + ((source - target) * alpha >> 8), rounded
// down; alpha 255 copies; the target's top byte stays.
void BlendRow(const std::uint32_t* source, std::uint32_t* target, int count);

// Source over target, both with straight alpha.
void OverRow(const std::uint32_t* source, std::uint32_t* target, int count);

// Multiplies the colours by the alpha, and takes that back.
void PremultiplyRow(std::uint32_t* pixels, int count);
void UnpremultiplyRow(std::uint32_t* pixels, int count);

}  // namespace vask::sdl
