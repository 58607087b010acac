// A record file is played while what it does is recorded: that is what a plain reader finds in the
// file, each event at its time, or with the one before it where that is past.

#include "events/eventbridge.h"
#include "fuzz.h"
#include "input/mouse.h"
#include "input/playbackmouse.h"
#include "input/recordmouse.h"

#include <algorithm>

namespace {

using Lines = std::vector<std::string>;

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

// What the event's words say after its time; empty for no event.
std::string Meaning(const Lines& words) {
  constexpr long long kFarthest = 1'000'000;  // pixels
  const auto number = [&](std::size_t i) { return std::strtoll(words[i].c_str(), nullptr, 10); };
  const auto place = [&](std::size_t i) {
    return std::to_string(words.size() < 4 ? 0 : std::clamp(number(i), -kFarthest, kFarthest));
  };
  const std::string type = words.size() < 2 ? "" : words[1];
  if (type == "mm") {
    return " mm " + place(2) + " " + place(3);
  }
  const bool isButton = (type == "mu" || type == "md") && words.size() > 2;
  return isButton ? " " + type + " " + std::to_string(static_cast<std::uint32_t>(number(2))) : "";
}

std::string Expected(const Lines& lines) {
  constexpr std::uint32_t kFuture = 1U << 31U;  // at most so far ahead, else past
  std::string record;
  std::uint32_t now = 0;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    std::istringstream stream(lines[i]);
    Lines words;
    for (std::string word; stream >> word;) {
      words.push_back(word);
    }
    if (const std::string meaning = Meaning(words); !meaning.empty()) {
      const auto time = static_cast<std::uint32_t>(std::strtoll(words[0].c_str(), nullptr, 10));
      now = time - now <= kFuture ? time : now;
      record += std::to_string(now) + meaning + "\n";
    }
  }
  return record;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostLines = 40;  // each one costs several files
  vask::CMouse::GetSingletonPtr();
  const Lines lines = vask::fuzz::ToLines(data, size);
  if (lines.size() <= kMostLines) {
    vask::fuzz::WriteFile("input.rec", vask::fuzz::ToText(data, size));
    vask::fuzz::Require(Replay("input.rec", lines.size()) == Expected(lines));
  }
  return 0;
}
