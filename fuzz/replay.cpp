// Any bytes are a recording, the start and entries of one, or a state: reading them must neither
// crash nor hang.

#include "game/replay/recordingformat.h"
#include "game/replay/recordingreader.h"
#include "game/replay/rulesversion.h"
#include "game/replay/statefield.h"

#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>

namespace {

using brumble::CRecordingReader;

void Read(const std::string& file) {
  CRecordingReader reader(std::make_unique<std::istringstream>(file));
  CRecordingReader::EItem item = reader.Next();
  while (item != CRecordingReader::EItem::kNone && item != CRecordingReader::EItem::kEnd) {
    item = reader.Next();
  }
}

// With the checksum that makes the reader look into it.
std::string Block(const std::string& bytes) {
  std::string packed(compressBound(bytes.size()), '\0');
  uLongf size = packed.size();
  compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
            reinterpret_cast<const Bytef*>(bytes.data()), bytes.size(), Z_NO_COMPRESSION);
  brumble::CByteWriter block;
  block.PutWord(static_cast<std::uint32_t>(size));
  block.PutWord(static_cast<std::uint32_t>(bytes.size()));
  block.PutWord(static_cast<std::uint32_t>(
      crc32(0, reinterpret_cast<const Bytef*>(packed.data()), static_cast<uInt>(size))));
  return block.GetBytes() + packed.substr(0, size);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kStartBytes = 13;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Read(bytes);
  brumble::CByteWriter head;
  head.PutBytes(brumble::kRecordingMark);
  head.PutByte(brumble::kFormatVersion);
  head.PutByte(brumble::kRulesVersion);
  const std::size_t start = std::min(size, kStartBytes);
  Read(head.GetBytes() + Block(bytes.substr(0, start)) + Block(bytes.substr(start)));
  const brumble::CStateFields fields = {brumble::SStateField::Of("game", -1, "bodies", 8),
                                        brumble::SStateField::Of("body", 7, "x", 1.5F)};
  brumble::FirstDifference(fields, bytes);
  return 0;
}
