#pragma once

#include <string>
#include <string_view>

namespace vask {

// Key codes are SDL 1.2 key symbols, 0 to 322. Code 0 is no key.
inline constexpr int kKeyCount = 323;

constexpr bool IsKeyCode(int key) { return key >= 0 && key < kKeyCount; }

// The name under which the console knows a key; empty for a code without one.
std::string NameFromKey(int key);

// The code of a key's name, to the letter; 0 for a name that no key has.
int KeyFromName(std::string_view name);

}  // namespace vask
