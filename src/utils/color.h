#pragma once

#include <cstdint>

namespace vask {

// Four colour components with the layout in which they are packed into 32 bits. By default red is
// the least significant byte; the masks and shifts may be those of a picture.
class CColor {
 public:
  CColor() = default;
  CColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha = 255)
      : r(red), g(green), b(blue), a(alpha) {}

  // Takes a packed colour apart by the default layout (red in the low byte).
  explicit CColor(std::uint32_t packed) { Unpack(packed); }

  // Sets the components from a value packed by this colour's masks and shifts.
  void Unpack(std::uint32_t packed) {
    r = static_cast<std::uint8_t>((packed & rMask) >> rShift);
    g = static_cast<std::uint8_t>((packed & gMask) >> gShift);
    b = static_cast<std::uint8_t>((packed & bMask) >> bShift);
    a = static_cast<std::uint8_t>((packed & aMask) >> aShift);
  }

  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  std::uint8_t a = 255;
  std::uint32_t rMask = 0x000000FF;
  std::uint32_t gMask = 0x0000FF00;
  std::uint32_t bMask = 0x00FF0000;
  std::uint32_t aMask = 0xFF000000;
  std::uint8_t rShift = 0;
  std::uint8_t gShift = 8;
  std::uint8_t bShift = 16;
  std::uint8_t aShift = 24;
};

}  // namespace vask
