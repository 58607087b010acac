// Any bytes are a recording, or the start and the entries of one: the game plays it, and comes to
// the same once more. Any bytes are a state to compare with.

#include "fuzz.h"
#include "game/effects.h"
#include "game/play.h"
#include "game/playstate.h"
#include "game/replay/recordingformat.h"
#include "game/replay/rulesversion.h"
#include "game/replay/statefield.h"
#include "game/replayedgame.h"

#include <zlib.h>

#include <algorithm>

namespace {

constexpr const char* kFile = "input.replay";

// What the game in the file has come to, and what was said of it.
std::string Play(brumble::CPlay& play) {
  constexpr int kMostInputs = 6000;
  brumble::CReplayedGame game(play, kFile);
  for (int i = 0; i < kMostInputs && !game.IsDone(); ++i) {
    game.PlayNext();
  }
  return game.GetProblem() + game.GetDifference() + game.GetSummary() +
         brumble::PackState(brumble::StateOf(play));
}

void PlayTwice(const std::string& file) {
  vask::fuzz::WriteFile(kFile, file);
  brumble::CPlay play;
  const std::string once = Play(play);
  vask::fuzz::Require(Play(play) == once);
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

// The first half are the entries.
std::string Columns(const std::string& bytes) {
  brumble::CByteWriter columns;
  columns.PutVarint(static_cast<std::uint32_t>(bytes.size() / 2));
  columns.PutVarint(static_cast<std::uint32_t>(bytes.size() / 4));
  columns.PutBytes(bytes);
  return columns.GetBytes();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kStartBytes = 11;
  brumble::SetEffectsShown(false);
  const std::string bytes = vask::fuzz::ToText(data, size);
  PlayTwice(bytes);
  brumble::CByteWriter head;
  head.PutBytes(brumble::kRecordingMark);
  head.PutByte(brumble::kFormatVersion);
  head.PutByte(brumble::kRulesVersion);
  const std::size_t start = std::min(size, kStartBytes);
  PlayTwice(head.GetBytes() + Block(bytes.substr(0, start)) + Block(bytes.substr(start)));
  PlayTwice(head.GetBytes() + Block(bytes.substr(0, start)) + Block(Columns(bytes.substr(start))));
  const brumble::CStateFields fields = {brumble::SStateField::Of("game", -1, "bodies", 8),
                                        brumble::SStateField::Of("body", 7, "x", 1.5F)};
  brumble::FirstDifference(fields, bytes);
  return 0;
}
