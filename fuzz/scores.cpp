// Any file of scores: at most ten are read, best first, and a new one is entered in its place. What
// is written is read as the same.

#include "game/scores.h"

#include "fuzz.h"

#include <algorithm>
#include <vector>

namespace {

using brumble::SScore;

bool AreSame(const SScore& a, const SScore& b) {
  return a.score == b.score && a.date == b.date && a.recording == b.recording && a.more == b.more;
}

bool AreBestFirst(const std::vector<SScore>& scores) {
  return std::ranges::is_sorted(scores, std::greater(), &SScore::score) &&
         scores.size() <= brumble::kBestScores;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vask::fuzz::Require;
  vask::fuzz::WriteFile(brumble::kScoresFile, vask::fuzz::ToText(data, size));
  std::vector<SScore> expected = brumble::ReadScores().value();
  Require(AreBestFirst(expected));
  const SScore score{static_cast<int>(size), "2026-01-01", "-", ""};
  const auto place = std::ranges::find_if(
      expected, [&](const SScore& other) { return other.score < score.score; });
  const auto number = place - expected.begin() + 1;
  expected.insert(place, score);
  expected.resize(std::min(expected.size(), brumble::kBestScores));
  Require(brumble::EnterScore(score) ==
          (number <= static_cast<std::ptrdiff_t>(brumble::kBestScores) ? number : 0));
  Require(std::ranges::equal(brumble::ReadScores().value(), expected, AreSame));
  return 0;
}
