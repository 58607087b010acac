#pragma once

#include <string>
#include <string_view>

namespace vask {

// The bytes in the alphabet of RFC 2045, in lines of 76 letters; no line end after the last one.
std::string EncodeBase64(std::string_view bytes);

}  // namespace vask
