#include "game/effects.h"
#include "game/gamerecording.h"
#include "game/pilot.h"
#include "game/play.h"
#include "game/replayedgame.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <vector>

// What recording adds to a frame of play: frames of 16 ms of a pilot's game, without and with a
// recording, in turns. Nothing is drawn; frame_bench tells what drawing costs. And how long it
// takes to play the recording again.

namespace brumble {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFrames = 4000;  // about a minute
constexpr unsigned kFrame = 16;
constexpr const char* kFile = "bench.replay";

// Microseconds a frame.
double Play(bool isRecorded) {
  CPlay play;
  CPilot pilot(CPilot::EManner::kPresser, 1);
  const SGameStart start = play.NextStart(1);
  play.Start(start);
  std::filesystem::remove(kFile);
  std::unique_ptr<CGameRecording> recording;
  if (isRecorded) {
    recording = std::make_unique<CGameRecording>(play, kFile, start, SInput());
  }
  SInput input;
  const Clock::time_point began = Clock::now();
  for (int frame = 0; frame < kFrames; ++frame) {
    input.time += kFrame;
    input.appTime = input.time;
    const SScreenPoint pointer = pilot.PointerAt(play.GetWorld(), input.time);
    input.pointerX = pointer.x;
    input.pointerY = pointer.y;
    if (recording != nullptr) {
      recording->Note(input);
    }
    play.Take(input);
  }
  return std::chrono::duration<double, std::micro>(Clock::now() - began).count() / kFrames;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void BM_Recording(benchmark::State& state) {
  SetEffectsShown(false);
  std::vector<double> plain;
  std::vector<double> recorded;
  for (auto _ : state) {
    plain.push_back(Play(false));
    recorded.push_back(Play(true));
    state.SetIterationTime(recorded.back() / 1.0e6);
  }
  state.counters["plain_us"] = Median(plain);
  state.counters["recorded_us"] = Median(recorded);
  state.counters["recording_us"] = Median(recorded) - Median(plain);
  state.counters["ratio"] = Median(recorded) / Median(plain);
  state.counters["limit"] = 1.8;
  std::filesystem::remove(kFile);
}
BENCHMARK(BM_Recording)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(50);

// The peer is the game's own time: a day of play is to be verified in a minute.
void BM_Verifying(benchmark::State& state) {
  SetEffectsShown(false);
  Play(true);
  std::vector<double> seconds;
  double played = 0;
  for (auto _ : state) {
    const Clock::time_point began = Clock::now();
    CPlay play;
    CReplayedGame game(play, kFile);
    while (!game.IsDone()) {
      game.PlayNext();
    }
    seconds.push_back(std::chrono::duration<double>(Clock::now() - began).count());
    state.SetIterationTime(seconds.back());
    played = game.GetTime() / 1000.0;
    if (!game.GetDifference().empty()) {
      state.SkipWithError(game.GetDifference().c_str());
      break;
    }
  }
  std::filesystem::remove(kFile);
  constexpr double kMinute = 60;
  constexpr double kDay = 24 * 60 * kMinute;
  state.counters["day_s"] = Median(seconds) / played * kDay;
  state.counters["ratio"] = Median(seconds) / played;
  state.counters["limit"] = kMinute / kDay;
}
BENCHMARK(BM_Verifying)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(50);

}  // namespace
}  // namespace brumble
