#include "audio/soundfilecheck.h"

#include "utils/inputfile.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <system_error>

namespace vask {

namespace {

using Offset = std::istream::off_type;

constexpr Offset kMostBytes = std::numeric_limits<int>::max();  // that SDL can count
constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kChunkHeaderSize = 8;
constexpr std::size_t kDescriptionSize = 16;
constexpr std::uint32_t kMsAdpcm = 2;
constexpr std::uint32_t kImaAdpcm = 0x11;
constexpr Offset kAdpcmGrowth = 4;
constexpr int kFirstOverSdl2 = 50;  // patch level of the library

enum class EUse { kEffect, kMusic };

// A piece of a wave file.
struct SChunk {
  std::string mark;
  Offset start;
  Offset size;

  Offset End() const { return start + size; }
};

// How the samples of a wave file are kept, as far as it matters here.
struct SDescription {
  std::uint32_t encoding;
  std::uint32_t channels;
  std::uint32_t frequency;
  std::uint32_t blockSize;
  std::uint32_t bits;

  std::uint8_t Channels() const { return static_cast<std::uint8_t>(channels); }  // as SDL cuts it
  bool IsAdpcm() const { return encoding == kMsAdpcm || encoding == kImaAdpcm; }
};

// Returns fewer at the end of the file.
std::string ReadBytes(std::istream& file, Offset at, std::size_t count) {
  std::string bytes(count, '\0');
  file.clear();
  file.seekg(at);
  file.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

// Little-endian.
std::uint32_t ToNumber(const std::string& bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = count; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return value;
}

SDescription ToDescription(const std::string& bytes) {
  return {.encoding = ToNumber(bytes, 0, 2),
          .channels = ToNumber(bytes, 2, 2),
          .frequency = ToNumber(bytes, 4, 4),
          .blockSize = ToNumber(bytes, 12, 2),
          .bits = ToNumber(bytes, 14, 2)};
}

// None when the file ends before.
std::optional<SChunk> ReadChunk(std::istream& file, Offset at) {
  const std::string header = ReadBytes(file, at, kChunkHeaderSize);
  if (header.size() < kChunkHeaderSize) {
    return std::nullopt;
  }
  return SChunk{header.substr(0, 4), at + static_cast<Offset>(kChunkHeaderSize),
                ToNumber(header, 4, 4)};
}

// Where the first chunk begins. As an effect SDL takes a wave file without its first mark or its
// size, too; of music the mixer always skips a size.
std::optional<Offset> FindFirstChunk(std::istream& file, EUse use) {
  const std::string header = ReadBytes(file, 0, kHeaderSize);
  if (header.size() < kHeaderSize || !(header.starts_with("RIFF") || header.starts_with("WAVE"))) {
    return std::nullopt;
  }
  for (const std::size_t at : {4U, 8U}) {
    if (header.substr(at, 4) == "WAVE" && (at == 8 || use == EUse::kEffect)) {
      return static_cast<Offset>(at) + 4;
    }
  }
  return std::nullopt;
}

// The chunk in which SDL expects the description. It goes from chunk to chunk by their bare sizes,
// without the padding of odd ones, and so does this.
std::optional<SChunk> FindDescription(std::istream& file, EUse use) {
  const std::optional<Offset> first = FindFirstChunk(file, use);
  std::optional<SChunk> chunk = first ? ReadChunk(file, *first) : std::nullopt;
  while (chunk && (chunk->mark == "LIST" || chunk->mark == "fact")) {
    chunk = ReadChunk(file, chunk->End());
  }
  return chunk;
}

SDL_AudioSpec QueryDevice() {
  SDL_AudioSpec device{};
  int channels = 0;
  Mix_QuerySpec(&device.freq, &device.format, &channels);
  device.channels = static_cast<std::uint8_t>(channels);
  return device;
}

// The steps from the sound, at a frequency, to the device, as SDL plans them.
SDL_AudioCVT Plan(const SDescription& sound, int frequency, const SDL_AudioSpec& device) {
  SDL_AudioCVT plan{};
  SDL_BuildAudioCVT(&plan, sound.bits == 8 ? AUDIO_U8 : AUDIO_S16LSB, sound.Channels(), frequency,
                    device.format, device.channels, device.freq);
  return plan;
}

// How often SDL 1.2 doubles or halves a sound on the way from one frequency to another, up to a
// number: this is its own arithmetic, with all that overflows in it.
int CountRateSteps(int from, int to, int most) {
  auto low = static_cast<std::uint32_t>(std::min(from, to));
  const auto high = static_cast<std::uint32_t>(std::max(from, to));
  int steps = 0;
  while (from / 100 != to / 100 && steps < most && low * 2 / 100 <= high / 100) {
    low *= 2;
    ++steps;
  }
  return steps;
}

// Whether SDL can plan the conversion. Where it cannot, SDL 1.2 would go on planning for ever,
// beyond its own table; so it plans here only without a change of the frequency, which is always
// safe.
bool CanPlan(const SDescription& sound, const SDL_AudioSpec& device) {
  if (SDL_Linked_Version()->patch >= kFirstOverSdl2) {
    return true;
  }
  if (sound.Channels() == 0) {
    return false;
  }
  const SDL_AudioCVT plan = Plan(sound, device.freq, device);
  const int room = static_cast<int>(std::size(plan.filters)) - 1 - plan.filter_index;
  return CountRateSteps(static_cast<int>(sound.frequency), device.freq, room + 1) <= room;
}

Offset SizeOf(std::istream& file) {
  file.clear();
  file.seekg(0, std::ios::end);
  return file.tellg();
}

// The mixer looks for the data of a track for ever, and frees the file twice where a chunk has a
// size that it takes for a negative one.
bool HasData(std::istream& file, Offset at) {
  std::optional<SChunk> chunk = ReadChunk(file, at);
  while (chunk && chunk->size <= kMostBytes && chunk->mark != "data") {
    chunk = ReadChunk(file, chunk->End());
  }
  return chunk && chunk->size <= kMostBytes;
}

// Whether the chunks up to the data are in the file to their ends: SDL makes room for as much as
// they claim, which may be 4 GB, before it reads them.
bool HasWholeChunks(std::istream& file, Offset at, Offset fileSize) {
  std::optional<SChunk> chunk = ReadChunk(file, at);
  while (chunk && chunk->End() <= fileSize && chunk->mark != "data") {
    chunk = ReadChunk(file, chunk->End());
  }
  return !chunk || chunk->End() <= fileSize;
}

// Why sound of that description must be kept from SDL; null for none.
const char* FindFault(const SDescription& sound, Offset fileSize, EUse use) {
  const SDL_AudioSpec device = QueryDevice();
  if (!CanPlan(sound, device) || (sound.IsAdpcm() && sound.blockSize == 0)) {
    return "SDL cannot convert what the wave file describes";
  }
  if (use == EUse::kMusic) {  // which is converted bit by bit
    return nullptr;
  }
  const int growth = Plan(sound, static_cast<int>(sound.frequency), device).len_mult;
  const Offset size = fileSize * growth * (sound.IsAdpcm() ? kAdpcmGrowth : 1);
  return size > kMostBytes ? "The wave file is too large" : nullptr;
}

// The same for a file; null also where SDL itself reports the fault.
const char* FindFault(std::istream& file, EUse use) {
  const std::optional<SChunk> chunk = FindDescription(file, use);
  const Offset size = SizeOf(file);
  if (!chunk) {
    return nullptr;
  }
  if (size > kMostBytes) {
    return "The wave file is too large";
  }
  if (use == EUse::kEffect && !HasWholeChunks(file, *FindFirstChunk(file, use), size)) {
    return "The wave file is cut off";
  }
  if (chunk->End() > size) {
    return nullptr;
  }
  if (chunk->mark != "fmt ") {  // the mixer frees such a chunk of a track twice
    return use == EUse::kMusic ? "The wave file does not begin with its description" : nullptr;
  }
  if (chunk->size < static_cast<Offset>(kDescriptionSize)) {
    return "The description in the wave file is too short";
  }
  const std::string description = ReadBytes(file, chunk->start, kDescriptionSize);
  if (const char* fault = FindFault(ToDescription(description), size, use)) {
    return fault;
  }
  return use == EUse::kMusic && !HasData(file, chunk->End()) ? "The wave file has no data"
                                                             : nullptr;
}

bool Refuse(const char* reason) {
  SDL_SetError("%s", reason);
  return false;
}

bool Check(const std::string& fileName, EUse use) {
  std::error_code error;
  if (IsEndless(fileName) || std::filesystem::is_directory(fileName, error)) {
    return Refuse("This is no file");
  }
  std::ifstream file(fileName, std::ios::binary);
  if (!file.is_open()) {
    return Refuse("The file could not be opened");
  }
  if (file.peek() == std::ifstream::traits_type::eof()) {
    return Refuse("The file is empty");  // as music it would cost the mixer some memory each time
  }
  if (const char* fault = FindFault(file, use)) {
    return Refuse(fault);
  }
  SDL_SetError("nothing");  // in case that SDL fails and gives no reason
  return true;
}

}  // namespace

bool CheckEffectFile(const std::string& fileName) { return Check(fileName, EUse::kEffect); }

bool CheckMusicFile(const std::string& fileName) { return Check(fileName, EUse::kMusic); }

}  // namespace vask
