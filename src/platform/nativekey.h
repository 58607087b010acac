#pragma once

#include <string>

namespace vask::platform {

enum class ENativeKey {
  kText,
  kLeft,
  kRight,
  kUp,
  kDown,
  kHome,
  kEnd,
  kBackspace,
  kDelete,
  kReturn,
  kSelectAll,
};

// A key that was pressed in a native window.
struct SNativeKey {
  ENativeKey key = ENativeKey::kText;
  std::string text;      // what the key types
  bool selects = false;  // the shift key is held
};

}  // namespace vask::platform
