#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vask {

// The name of SDL's number of a sample format, as the start-up parameters of the audio task and the
// log write it ("S16LSB"); empty for any other number.
std::string_view AudioFormatName(std::uint16_t format);

// The number of that name, in capitals or not; 0 for a name that is no format.
std::uint16_t AudioFormatFromName(std::string name);

}  // namespace vask
