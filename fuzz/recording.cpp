// A record file is played while what it does is recorded: playing that does the same at the same
// times.

#include "events/eventbridge.h"
#include "fuzz.h"
#include "input/mouse.h"
#include "input/playbackmouse.h"
#include "input/recordmouse.h"

#include <algorithm>

namespace {

struct SFastClock : vask::IGlobalTimerImpl {
  unsigned GetTicks() override { return now; }
  unsigned now = 0;
};

// Plays the file to its end and returns the record of it, without the seed.
std::string Replay(const std::string& fileName, std::size_t events) {
  constexpr unsigned kStep = 1U << 30U;         // milliseconds that a frame lasts at most
  constexpr std::size_t kFramesForAnEvent = 3;  // which lies less than two of these ahead
  auto* clock = new SFastClock;
  const vask::CSmartPtr<vask::IGlobalTimerImpl> owner(clock);
  vask::CPlaybackMouse playback(fileName, owner);
  const vask::CRecordMouse record("record.rec");
  for (std::size_t frame = 0; frame < (events + 1) * kFramesForAnEvent; ++frame) {
    clock->now = vask::GetGlobalTime() + kStep;
    playback.Update();
  }
  const std::string lines = vask::fuzz::ReadFile("record.rec");
  return lines.substr(lines.find('\n') + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostLines = 40;  // each one costs several files
  vask::CMouse::GetSingletonPtr();
  const std::size_t lines = vask::fuzz::ToLines(data, size).size();
  if (lines > kMostLines) {
    return 0;
  }
  vask::fuzz::WriteFile("input.rec", vask::fuzz::ToText(data, size));
  const std::string played = Replay("input.rec", lines);
  vask::fuzz::WriteFile("played.rec", "1\n" + played);
  vask::fuzz::Require(Replay("played.rec", lines) == played);
  return 0;
}
