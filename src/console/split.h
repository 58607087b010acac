#pragma once

#include <string_view>
#include <vector>

namespace vask {

// The pieces between the separators (never empty); pieces of length zero are dropped.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

}  // namespace vask
