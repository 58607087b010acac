#pragma once

#include <string_view>

namespace vask {

// What counts as blank inside a line.
inline constexpr std::string_view kBlanks = " \t";

inline constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// The text without the blanks at its front, at its back, or at both ends.
inline std::string_view TrimFront(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) {
    text.remove_prefix(1);
  }
  return text;
}

inline std::string_view TrimBack(std::string_view text) {
  while (!text.empty() && IsBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

inline std::string_view Trim(std::string_view text) { return TrimBack(TrimFront(text)); }

}  // namespace vask
