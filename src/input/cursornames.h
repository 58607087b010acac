#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace vask {

// The names of the cursor types, as the console knows them. A cursor's type is its place in the
// table; it is what CEventBridge::ChangeCursor takes.
inline constexpr std::array<std::string_view, 10> kCursorNames = {
    "cursor_none",
    "cursor_arrow",
    "cursor_cross",
    "cursor_text",
    "cursor_hand",
    "cursor_busy",
    "cursor_resize_horizontal",
    "cursor_resize_vertical",
    "cursor_resize_diagonal1",
    "cursor_resize_diagonal2",
};

// The type of a cursor name; 0 for a name that is not in the table.
inline int CursorTypeFromName(std::string_view name) {
  const auto found = std::find(kCursorNames.begin(), kCursorNames.end(), name);
  return found == kCursorNames.end() ? 0 : static_cast<int>(found - kCursorNames.begin());
}

}  // namespace vask
