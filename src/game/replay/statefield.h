#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brumble {

// One value of the state of a game, under the name by which a difference is told: "body 8, x".
struct SStateField {
  const char* subject;  // "body", "kitten", "game"
  int index;            // of the subject; negative for the only one of its kind
  const char* name;
  bool isFloat;
  std::uint32_t bits;  // of an int32 or a float

  static SStateField Of(const char* subject, int index, const char* name, float value) {
    return {subject, index, name, true, std::bit_cast<std::uint32_t>(value)};
  }
  static SStateField Of(const char* subject, int index, const char* name, std::int32_t value) {
    return {subject, index, name, false, static_cast<std::uint32_t>(value)};
  }

  std::string Name() const;
  // A value of this field as text; floats with as many digits as tell any two apart.
  std::string ValueText(std::uint32_t value) const;
};

// What counts of a game at one moment, in a fixed order. Whether a value is there depends on those
// before it alone.
using CStateFields = std::vector<SStateField>;

// The values as bytes, without their names.
std::string PackState(const CStateFields& fields);

// The first field whose value is not that of the packed state, with both values: "body 8, x is
// 1.25, recorded 1.5"; empty when all are equal.
std::string FirstDifference(const CStateFields& played, std::string_view recorded);

}  // namespace brumble
