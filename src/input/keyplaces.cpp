#include "input/keyplaces.h"

#include "input/keynames.h"

#include <string_view>

namespace vask {

namespace {

constexpr int kPlaceUnderEscape = 49;

struct SRow {
  int firstPlace;
  std::string_view letters;
};

constexpr SRow kRows[] = {{24, "qwertyuiop"}, {38, "asdfghjkl"}, {52, "zxcvbnm"}};

constexpr bool IsWorldKey(int key) { return key >= kFirstWorldKey && key <= kLastWorldKey; }

}  // namespace

int KeyByPlace(int key, int place) {
  if (place == kPlaceUnderEscape) {
    return kBackquoteKey;
  }
  for (const SRow& row : kRows) {
    const int column = place - row.firstPlace;
    if (IsWorldKey(key) && column >= 0 && column < static_cast<int>(row.letters.size())) {
      return row.letters[static_cast<std::size_t>(column)];
    }
  }
  return key;
}

}  // namespace vask
