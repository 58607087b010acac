#pragma once

#include <string>
#include <string_view>

namespace vask {

// Key codes are SDL 1.2 key symbols, 0 to 322. Code 0 is no key. A key that types a character of
// ASCII has that character's code.
inline constexpr int kKeyCount = 323;

// The keys that the engine itself knows.
inline constexpr int kBackspaceKey = 8;
inline constexpr int kTabKey = 9;
inline constexpr int kReturnKey = 13;
inline constexpr int kEscapeKey = 27;
inline constexpr int kBackquoteKey = 96;
inline constexpr int kDeleteKey = 127;
inline constexpr int kFirstWorldKey = 160;  // keys that type no character of ASCII
inline constexpr int kLastWorldKey = 255;
inline constexpr int kFirstKeypadDigitKey = 256;
inline constexpr int kLastKeypadDigitKey = 265;
inline constexpr int kKeypadEnterKey = 271;
inline constexpr int kUpKey = 273;
inline constexpr int kDownKey = 274;
inline constexpr int kRightKey = 275;
inline constexpr int kLeftKey = 276;
inline constexpr int kHomeKey = 278;
inline constexpr int kEndKey = 279;
inline constexpr int kPageUpKey = 280;
inline constexpr int kPageDownKey = 281;
inline constexpr int kF1Key = 282;
inline constexpr int kF15Key = 296;

constexpr bool IsKeyCode(int key) { return key >= 0 && key < kKeyCount; }

// The name under which the console knows a key; empty for a code without one.
std::string NameFromKey(int key);

// The code of a key's name, to the letter; 0 for a name that no key has.
int KeyFromName(std::string_view name);

}  // namespace vask
