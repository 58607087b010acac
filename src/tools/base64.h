#pragma once

#include <string>
#include <string_view>

namespace vask {

// The bytes in the letters of RFC 2045, cut into lines of 76; no line end behind the last one.
std::string EncodeBase64(std::string_view bytes);

}  // namespace vask
