#include "game/replay/bytes.h"

namespace brumble {
namespace {

constexpr unsigned kVarintBits = 7;
constexpr unsigned kMoreFlag = 1U << kVarintBits;
constexpr unsigned kWordBits = 32;

}  // namespace

void CByteWriter::PutWord(std::uint32_t value) {
  for (unsigned shift = 0; shift < kWordBits; shift += 8) {
    PutByte(value >> shift);
  }
}

void CByteWriter::PutVarint(std::uint32_t value) {
  while (value >= kMoreFlag) {
    PutByte(value | kMoreFlag);
    value >>= kVarintBits;
  }
  PutByte(value);
}

void CByteWriter::PutSigned(std::int32_t value) {
  const auto bits = static_cast<std::uint32_t>(value);
  PutVarint(value < 0 ? ~(bits << 1U) : bits << 1U);
}

unsigned CByteReader::TakeByte() {
  const std::string_view byte = TakeBytes(1);
  return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
}

std::uint32_t CByteReader::TakeWord() {
  std::uint32_t value = 0;
  for (unsigned shift = 0; shift < kWordBits; shift += 8) {
    value |= TakeByte() << shift;
  }
  return value;
}

std::uint32_t CByteReader::TakeVarint() {
  std::uint64_t value = 0;
  for (unsigned shift = 0; shift < kWordBits; shift += kVarintBits) {
    const unsigned byte = TakeByte();
    value |= static_cast<std::uint64_t>(byte & ~kMoreFlag) << shift;
    if ((byte & kMoreFlag) == 0) {
      myHasFailed = myHasFailed || value > UINT32_MAX;
      return myHasFailed ? 0 : static_cast<std::uint32_t>(value);
    }
  }
  myHasFailed = true;
  return 0;
}

std::int32_t CByteReader::TakeSigned() {
  const std::uint32_t folded = TakeVarint();
  return static_cast<std::int32_t>((folded & 1U) != 0 ? ~(folded >> 1U) : folded >> 1U);
}

std::string_view CByteReader::TakeBytes(std::size_t count) {
  if (myHasFailed || count > myBytes.size()) {
    myHasFailed = true;
    return {};
  }
  const std::string_view taken = myBytes.substr(0, count);
  myBytes.remove_prefix(count);
  return taken;
}

}  // namespace brumble
