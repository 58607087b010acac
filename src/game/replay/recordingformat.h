#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brumble {

// A recording is a file of: the mark; a byte with the version of the format and one with that of
// the rules; and blocks. A block is three words (how long it is packed, how long unpacked, and the
// CRC-32 of the packed bytes), and the bytes as zlib packs them. The first block is the start of
// the game alone. The others are two varints, the lengths of the first two of three columns, and
// the columns: the entries, and how far the pointer moves along each axis, as signed varints. In
// columns they pack better. docs/replays.md describes all.

inline constexpr std::string_view kRecordingMark = "brumrec\n";
inline constexpr unsigned kFormatVersion = 2;

// An entry begins with a byte: its lowest two bits tell the form of what follows, the others are a
// number. In the first two forms that is the milliseconds since the last entry, or kLongWait, and
// a varint follows.
inline constexpr unsigned kFormBits = 2;
inline constexpr unsigned kFormMask = (1U << kFormBits) - 1;
inline constexpr unsigned kLongWait = 63;
enum EForm : unsigned {
  kPointerStays = 0,
  kPointerMoves = 1,  // by the next number of both columns
  kSpecial = 2,       // the number is one of ESpecial
};

enum ESpecial : unsigned {
  kSpecialPause = 0,   // varint milliseconds; the pointer moves, or by 0
  kSpecialResume = 1,  // the same
  kSpecialKitten = 2,  // the same
  kSpecialSkew = 3,    // by how much more milliseconds the application timer counts up to the next
                       // entry than the global clock: a signed varint
  kSpecialState = 4,   // a varint for the number of bytes, and the packed state
  kSpecialEnd = 5,     // a byte, 1 when the game has come to its end; a signed varint for the score
};

// What a reader takes; a writer stays far below.
inline constexpr std::size_t kMostBlockBytes = 1U << 18U;      // of a block, packed or not
inline constexpr std::size_t kMostRecordingBytes = 1U << 25U;  // of all blocks, unpacked
inline constexpr std::int32_t kMostKittens = 256;              // beside those of the rules
inline constexpr std::int32_t kMostPointer = 1 << 20;          // pixels
inline constexpr std::int32_t kMostCounter = 100'000'000;      // reset and look counter

}  // namespace brumble
