#pragma once

#include "gfx/picture/gfx.h"

#include <cstdint>
#include <optional>

namespace vask {

// How a sprite shows its loaded picture: scaled, then rotated, then faded.
struct SShownLook {
  struct SSize {
    int w = 0;  // pixels
    int h = 0;
    bool operator==(const SSize&) const = default;
  };

  std::optional<SSize> size;  // none: the picture's own
  // Counter-clockwise; none: not rotated. Whole turns count, as they make the picture a little
  // larger.
  std::optional<float> degrees;
  std::uint8_t alpha = 255;
};

// A copy of the picture with that look. Null when the picture itself looks like that, or has
// nothing to show; the null picture for a size of nothing.
Gfx::ImagePtr MakeShownCopy(const IPixel& loaded, const SShownLook& look);

}  // namespace vask
