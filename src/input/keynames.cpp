#include "input/keynames.h"

#include <algorithm>
#include <array>

namespace vask {

namespace {

struct SKeyName {
  int key;
  const char* name;
};

// clang-format off
constexpr std::array kWords = std::to_array<SKeyName>({
    {kBackspaceKey, "backspace"}, {kTabKey, "tab"}, {12, "clear"}, {kReturnKey, "return"}, {19, "pause"},
    {kEscapeKey, "escape"}, {' ', "space"}, {kBackquoteKey, "backquote"}, {kDeleteKey, "delete"},
    {266, "[.]"}, {267, "[/]"}, {268, "[*]"}, {269, "[-]"}, {270, "[+]"},
    {kKeypadEnterKey, "enter"}, {272, "equals"},
    {kUpKey, "up"}, {kDownKey, "down"}, {kRightKey, "right"}, {kLeftKey, "left"}, {277, "insert"},
    {kHomeKey, "home"}, {kEndKey, "end"}, {kPageUpKey, "page_up"}, {kPageDownKey, "page_down"},
    {300, "numlock"}, {301, "caps_lock"}, {302, "scroll_lock"},
    {303, "right_shift"}, {304, "left_shift"}, {305, "right_ctrl"}, {306, "left_ctrl"},
    {307, "right_alt"}, {308, "left_alt"}, {309, "right_meta"}, {310, "left_meta"},
    {311, "left_super"}, {312, "right_super"}, {313, "alt_gr"}, {314, "compose"},
    {315, "help"}, {316, "print_screen"}, {317, "sys_req"}, {318, "break"}, {319, "menu"},
    {320, "power"}, {321, "euro"}, {322, "undo"},
});
// clang-format on

// Consecutive keys that are numbered from 0 or 1.
struct SNumberedKeys {
  int first, last;
  const char* before;
  int firstNumber;
  const char* after;
};

constexpr std::array kNumbered = std::to_array<SNumberedKeys>({
    {kFirstWorldKey, kLastWorldKey, "world_", 0, ""},
    {kFirstKeypadDigitKey, kLastKeypadDigitKey, "[", 0, "]"},
    {kF1Key, kF15Key, "f", 1, ""},
});

// Keys that are named by the character that they type.
constexpr bool IsCharacterKey(int key) {
  const bool isSign = key >= '!' && key <= '@' && key != '%';
  return isSign || (key >= '[' && key <= 'z' && key != kBackquoteKey);
}

}  // namespace

std::string NameFromKey(int key) {
  if (IsCharacterKey(key)) {
    return {static_cast<char>(key)};
  }
  for (const SNumberedKeys& keys : kNumbered) {
    if (key >= keys.first && key <= keys.last) {
      return keys.before + std::to_string(key - keys.first + keys.firstNumber) + keys.after;
    }
  }
  const auto* found = std::ranges::find(kWords, key, &SKeyName::key);
  return found == kWords.end() ? std::string() : found->name;
}

int KeyFromName(std::string_view name) {
  for (int key = 1; key < kKeyCount && !name.empty(); ++key) {
    if (NameFromKey(key) == name) {
      return key;
    }
  }
  return 0;
}

}  // namespace vask
