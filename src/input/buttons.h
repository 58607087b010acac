#pragma once

namespace vask {

// The mouse buttons as the engine's events carry them. They are bits, so that several fit into one
// number; a turn of the wheel is a press and a release.
inline constexpr int kNoButton = 0;  // any other button
inline constexpr int kLeftButton = 1;
inline constexpr int kMiddleButton = 2;
inline constexpr int kRightButton = 4;
inline constexpr int kWheelUp = 8;
inline constexpr int kWheelDown = 16;

}  // namespace vask
