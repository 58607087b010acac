#pragma once

#include "support/files.h"

namespace vask::test {

// Little-endian.
inline std::string Bytes(std::size_t value, std::size_t count) {
  return std::string(reinterpret_cast<const char*>(&value), count);
}

inline std::string Chunk(const std::string& mark, const std::string& content) {
  return mark + Bytes(content.size(), 4) + content;
}

inline std::string Riff(const std::string& chunks) { return Chunk("RIFF", "WAVE" + chunks); }

struct SFormat {
  unsigned encoding = 1, channels = 1, frequency = 11025, blockSize = 1, bits = 8;
};

inline std::string Format(const SFormat& sound = {}) {
  return Chunk("fmt ", Bytes(sound.encoding, 2) + Bytes(sound.channels, 2) +
                           Bytes(sound.frequency, 4) + Bytes(sound.frequency, 4) +
                           Bytes(sound.blockSize, 2) + Bytes(sound.bits, 2));
}

inline std::string Data(std::size_t size = 1000) {
  return Chunk("data", std::string(size, '\x70'));
}

// Half a minute of sound, so that nothing ends by itself while a test looks at it.
inline void WriteLongWave(const std::string& name) {
  WriteFile(name, Riff(Format() + Data(400000)));
}

}  // namespace vask::test
