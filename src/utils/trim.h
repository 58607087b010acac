#pragma once

#include <string_view>

namespace vask {

// What counts as blank inside a line.
inline constexpr std::string_view kBlanks = " \t";

// The text without the blanks at its front, at its back, or at both ends.
inline std::string_view TrimFront(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

inline std::string_view TrimBack(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

inline std::string_view Trim(std::string_view text) { return TrimBack(TrimFront(text)); }

}  // namespace vask
