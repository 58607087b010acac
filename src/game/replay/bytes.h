#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brumble {

// The numbers of a recording as bytes. A varint has seven bits a byte, the lowest first; a signed
// one is folded, so that small numbers of either sign are short.
class CByteWriter {
 public:
  void PutByte(unsigned value) { myBytes += static_cast<char>(value & 0xFFU); }
  void PutWord(std::uint32_t value);  // four bytes, the lowest first
  void PutVarint(std::uint32_t value);
  void PutSigned(std::int32_t value);
  void PutBytes(std::string_view bytes) { myBytes += bytes; }

  const std::string& GetBytes() const { return myBytes; }
  void Clear() { myBytes.clear(); }

 private:
  std::string myBytes;
};

// Reads them back. What is not there, or is longer than a number can be, reads as 0 and makes the
// reader fail for good.
class CByteReader {
 public:
  // The bytes must outlive the reader.
  explicit CByteReader(std::string_view bytes) : myBytes(bytes) {}

  unsigned TakeByte();
  std::uint32_t TakeWord();
  std::uint32_t TakeVarint();
  std::int32_t TakeSigned();
  std::string_view TakeBytes(std::size_t count);
  std::string_view TakeRest() { return TakeBytes(myBytes.size()); }

  bool IsAtEnd() const { return myBytes.empty(); }
  bool HasFailed() const { return myHasFailed; }

 private:
  std::string_view myBytes;
  bool myHasFailed = false;
};

}  // namespace brumble
