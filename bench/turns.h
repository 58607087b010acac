#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace vask {

// A peer and our side, called in turns until the benchmark has enough. All passes are alike, so the
// fastest of each side is the one that was disturbed least; the counter `ratio` is taken between
// those. It is to be at most the goal; the counter `limit` is the goal with a margin.
template <typename Ours, typename Peer>
void MeasureInTurns(benchmark::State& state, double goal, Ours ours, Peer peer) {
  constexpr double kMargin = 1.5;
  using Clock = std::chrono::steady_clock;
  const auto time = [](auto& side, double& fastest) {
    const Clock::time_point start = Clock::now();
    side();
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    fastest = std::min(fastest, seconds);
    return seconds;
  };
  double oursFastest = std::numeric_limits<double>::infinity();
  double peerFastest = oursFastest;
  for ([[maybe_unused]] auto _ : state) {
    state.SetIterationTime(time(ours, oursFastest));
    time(peer, peerFastest);
  }
  state.counters["ours_us"] = oursFastest * 1.0e6;
  state.counters["peer_us"] = peerFastest * 1.0e6;
  state.counters["ratio"] = oursFastest / peerFastest;
  state.counters["limit"] = kMargin * goal;
}

}  // namespace vask
