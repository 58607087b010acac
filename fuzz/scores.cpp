// Any file of scores: the best are those that a plain reader finds, and a new one is entered in its
// place. What is written is read as the same.

#include "game/scores.h"

#include "fuzz.h"

#include <algorithm>
#include <cctype>
#include <limits>

namespace {

using brumble::SScore;

bool AreSame(const SScore& a, const SScore& b) {
  return a.score == b.score && a.date == b.date && a.recording == b.recording && a.more == b.more;
}

bool IsDate(const std::string& word) {
  bool holds = word.size() == 10;
  for (std::size_t i = 0; holds && i < word.size(); ++i) {
    const bool isDash = i == 4 || i == 7;
    holds = isDash ? word[i] == '-' : std::isdigit(static_cast<unsigned char>(word[i])) != 0;
  }
  return holds;
}

// Cuts the first word off the line, with the blanks around it.
std::string TakeWord(std::string& line) {
  constexpr const char* kBlanks = " \t\v\f\r";
  line.erase(0, line.find_first_not_of(kBlanks));
  const std::string word = line.substr(0, line.find_first_of(kBlanks));
  line.erase(0, line.find_first_not_of(kBlanks, word.size()));
  return word;
}

// A number, a date, a word, and what else; others are left out.
std::vector<SScore> PlainlyRead(const std::vector<std::string>& lines) {
  using Limits = std::numeric_limits<int>;
  std::vector<SScore> scores;
  for (std::string line : lines) {
    const std::string number = TakeWord(line), date = TakeWord(line), recording = TakeWord(line);
    char* end = nullptr;
    const long long score = std::strtoll(number.c_str(), &end, 10);
    const bool isNumber = !number.empty() && end == number.c_str() + number.size() &&
                          score >= Limits::min() && score <= Limits::max();
    if (isNumber && IsDate(date) && !recording.empty()) {
      scores.push_back({static_cast<int>(score), date, recording, line});
    }
  }
  return scores;
}

void KeepBest(std::vector<SScore>& scores) {
  std::ranges::stable_sort(scores, std::greater(), &SScore::score);
  scores.resize(std::min(scores.size(), brumble::kBestScores));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vask::fuzz::Require;
  vask::fuzz::WriteFile(brumble::kScoresFile, vask::fuzz::ToText(data, size));
  std::vector<SScore> expected = PlainlyRead(vask::fuzz::ToLines(data, size));
  KeepBest(expected);
  Require(std::ranges::equal(brumble::ReadScores().value(), expected, AreSame));
  const SScore score{static_cast<int>(size), "2026-01-01", "-", ""};
  const auto better = std::ranges::count_if(
      expected, [&](const SScore& other) { return other.score >= score.score; });
  const bool isAmongThem = better < static_cast<std::ptrdiff_t>(brumble::kBestScores);
  Require(brumble::EnterScore(score) == (isAmongThem ? better + 1 : 0));
  expected.push_back(score);
  KeepBest(expected);
  Require(std::ranges::equal(brumble::ReadScores().value(), expected, AreSame));
  return 0;
}
