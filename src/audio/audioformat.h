#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vask {

// The name of SDL's number of a sample format ("S16LSB"), as in the log and the start-up parameters
// of the audio task; empty for any other number.
std::string_view AudioFormatName(std::uint16_t format);

// The number of that name, in upper or lower case; 0 for a name that is no format.
std::uint16_t AudioFormatFromName(std::string name);

}  // namespace vask
