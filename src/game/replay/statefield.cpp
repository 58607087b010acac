#include "game/replay/statefield.h"

#include "game/replay/bytes.h"

#include <array>
#include <cstdio>

namespace brumble {

std::string SStateField::Name() const {
  return std::string(subject) + (index < 0 ? "" : " " + std::to_string(index)) + ", " + name;
}

std::string SStateField::ValueText(std::uint32_t value) const {
  if (!isFloat) {
    return std::to_string(static_cast<std::int32_t>(value));
  }
  std::array<char, 32> text = {};
  std::snprintf(text.data(), text.size(), "%.9g", static_cast<double>(std::bit_cast<float>(value)));
  return text.data();
}

std::string PackState(const CStateFields& fields) {
  CByteWriter writer;
  for (const SStateField& field : fields) {
    if (field.isFloat) {
      writer.PutWord(field.bits);
    } else {
      writer.PutSigned(static_cast<std::int32_t>(field.bits));
    }
  }
  return writer.GetBytes();
}

std::string FirstDifference(const CStateFields& played, std::string_view recorded) {
  CByteReader reader(recorded);
  for (const SStateField& field : played) {
    const std::uint32_t bits =
        field.isFloat ? reader.TakeWord() : static_cast<std::uint32_t>(reader.TakeSigned());
    if (reader.HasFailed()) {
      return field.Name() + " is not in the recording";
    }
    if (bits != field.bits) {
      return field.Name() + " is " + field.ValueText(field.bits) + ", recorded " +
             field.ValueText(bits);
    }
  }
  return reader.IsAtEnd() ? "" : "the recording has more values than the game";
}

}  // namespace brumble
