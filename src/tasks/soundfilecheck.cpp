#include "tasks/soundfilecheck.h"

#include <SDL.h>

#include <array>
#include <cstddef>
#include <fstream>
#include <string_view>

#include "utils/inputfile.h"

namespace vask {

namespace {

// SDL doubles or halves from the sound's frequency to the device's, and has room for few steps.
constexpr unsigned kLeastFrequency = 4000;
constexpr unsigned kMostFrequency = 192000;
constexpr unsigned kMostChannels = 8;

// The start of a wave file whose first chunk is the description, which every common program writes.
constexpr std::size_t kHeaderSize = 36;
constexpr std::size_t kTypeAt = 8;
constexpr std::size_t kFirstChunkAt = 12;
constexpr std::size_t kChannelsAt = 22;
constexpr std::size_t kFrequencyAt = 24;
constexpr std::size_t kBlockSizeAt = 32;
constexpr std::size_t kBitsAt = 34;

constexpr int kChunkHeaderSize = 8;
constexpr std::size_t kChunkSizeAt = 4;

using Header = std::array<char, kHeaderSize>;

// Little-endian.
unsigned Read(const Header& header, std::size_t at, std::size_t bytes) {
  unsigned value = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(header[at + i]);
  }
  return value;
}

bool IsSane(const Header& header) {
  const std::string_view text(header.data(), header.size());
  const unsigned channels = Read(header, kChannelsAt, 2);
  const unsigned frequency = Read(header, kFrequencyAt, 4);
  return text.substr(kTypeAt, 4) == "WAVE" && text.substr(kFirstChunkAt, 4) == "fmt " &&
         channels >= 1 && channels <= kMostChannels && frequency >= kLeastFrequency &&
         frequency <= kMostFrequency && Read(header, kBlockSizeAt, 2) > 0 &&
         Read(header, kBitsAt, 2) > 0;
}

// SDL looks for the data for ever when the file ends before them. It goes from chunk to chunk by
// their bare sizes, without the padding of odd ones, and so does this.
bool HasData(std::istream& file) {
  Header chunk{};
  std::istream::off_type position = kFirstChunkAt;
  while (file.seekg(position) && file.read(chunk.data(), kChunkHeaderSize)) {
    if (std::string_view(chunk.data(), 4) == "data") {
      return true;
    }
    position += kChunkHeaderSize + Read(chunk, kChunkSizeAt, 4);
  }
  return false;
}

}  // namespace

bool CheckSoundFile(const std::string& fileName) {
  if (IsEndless(fileName)) {
    SDL_SetError("This is no file");
    return false;
  }
  Header header{};
  std::ifstream file(fileName, std::ios::binary);
  file.read(header.data(), kHeaderSize);
  if (file.is_open() && file.gcount() == 0) {
    SDL_SetError("The file is empty");
    return false;
  }
  const std::string_view mark(header.data(), 4);
  const bool isWave = mark == "RIFF" || mark == "WAVE";
  if (isWave && !(IsSane(header) && HasData(file))) {
    SDL_SetError("The wave file is damaged");
    return false;
  }
  return true;
}

}  // namespace vask
