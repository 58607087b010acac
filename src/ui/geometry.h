#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vask::ui {

struct SPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const SPoint&) const = default;
};

struct SSize {
  std::int32_t w = 0;
  std::int32_t h = 0;
  bool operator==(const SSize&) const = default;
};

// Truncates to 32 bits: a value out of range becomes the nearest limit and NaN 0, since layouts
// come from expressions that may divide and multiply at will.
inline std::int32_t ToPixels(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return std::isnan(value) ? 0
                           : static_cast<std::int32_t>(
                                 std::clamp(value, double{Limits::min()}, double{Limits::max()}));
}

inline SPoint operator+(SPoint a, SPoint b) {
  return {ToPixels(1.0 * a.x + b.x), ToPixels(1.0 * a.y + b.y)};
}

inline SPoint operator-(SPoint a, SPoint b) {
  return {ToPixels(1.0 * a.x - b.x), ToPixels(1.0 * a.y - b.y)};
}

}  // namespace vask::ui
