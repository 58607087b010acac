#include "console/split.h"

#include <algorithm>

namespace vask {

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    if (end > start) {
      pieces.push_back(text.substr(start, end - start));
    }
    start = end + separator.size();
  }
  return pieces;
}

}  // namespace vask
