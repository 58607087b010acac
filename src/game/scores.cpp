#include "game/scores.h"

#include "platform/filelock.h"
#include "platform/wallclock.h"
#include "utils/inputfile.h"
#include "utils/log/log.h"
#include "utils/outputfile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>
#include <sstream>
#include <system_error>

namespace brumble {
namespace {

constexpr const char* kLockFile = "scores.lock";
constexpr const char* kNewFile = "scores.new";
constexpr unsigned kLockPatience = 500;  // milliseconds

bool IsDate(const std::string& text) {
  constexpr const char* kForm = "dddd-dd-dd";
  return text.size() == std::string(kForm).size() &&
         std::equal(text.begin(), text.end(), kForm, [](char c, char form) {
           return form == 'd' ? c >= '0' && c <= '9' : c == form;
         });
}

std::optional<SScore> ParseScore(const std::string& line) {
  std::istringstream fields(line);
  SScore score;
  if (!(fields >> score.score >> score.date >> score.recording) || !IsDate(score.date)) {
    return std::nullopt;
  }
  std::getline(fields >> std::ws, score.more);
  return score;
}

std::string FormatScore(const SScore& score) {
  const std::string more = score.more.empty() ? "" : " " + score.more;
  return std::to_string(score.score) + " " + score.date + " " + score.recording + more;
}

void ReportBrokenLine(const std::string& line) {
  static bool hasReported = false;
  if (!hasReported) {
    vask::Log().Warning() << "Scores: a line of " << kScoresFile << " is no score: " << line
                          << "\n";
  }
  hasReported = true;
}

// Sorts it in; returns its place, counted from 1.
std::size_t Insert(std::vector<SScore>& scores, const SScore& score) {
  const auto worse = std::find_if(scores.begin(), scores.end(), [&score](const SScore& other) {
    return other.score < score.score;
  });
  const std::ptrdiff_t better = worse - scores.begin();
  scores.insert(worse, score);
  return static_cast<std::size_t>(better) + 1;
}

// A new file takes the old one's place, so that a full disk leaves the old one whole.
bool WriteScores(const std::vector<SScore>& scores) {
  std::ofstream file = vask::OpenOutputFile(kNewFile);
  for (const SScore& score : scores) {
    file << FormatScore(score) << "\n";
  }
  file.close();
  const bool isWritten = file.good() && std::rename(kNewFile, kScoresFile) == 0;
  if (!isWritten) {
    std::remove(kNewFile);
  }
  return isWritten;
}

}  // namespace

std::optional<std::vector<SScore>> ReadScores() {
  std::vector<SScore> scores;
  std::ifstream file = vask::OpenInputFile(kScoresFile);
  std::string line;
  while (std::getline(file, line)) {
    if (const std::optional<SScore> score = ParseScore(line)) {
      Insert(scores, *score);
    } else {
      ReportBrokenLine(line);
    }
  }
  std::error_code error;
  const bool isThere = std::filesystem::exists(kScoresFile, error) || error;
  if (file.bad() || (isThere && !file.is_open())) {
    vask::Log().Warning() << "Scores: " << kScoresFile << " can't be read\n";
    return std::nullopt;
  }
  scores.resize(std::min(scores.size(), kBestScores));
  return scores;
}

int BestScore() {
  const auto scores = ReadScores();
  return !scores || scores->empty() ? 0 : scores->front().score;
}

int EnterScore(const SScore& score) {
  const vask::platform::CFileLock lock(kLockFile, kLockPatience);
  std::optional<std::vector<SScore>> known = ReadScores();
  if (!known) {
    return 0;  // what can't be read must not be replaced
  }
  std::vector<SScore>& scores = *known;
  const std::size_t place = Insert(scores, score);
  if (place > kBestScores) {
    return 0;
  }
  scores.resize(std::min(scores.size(), kBestScores));
  // A second try, as the first may have failed for a moment only.
  if (!lock.IsHeld() || !(WriteScores(scores) || WriteScores(scores))) {
    vask::Log().Warning() << "Scores: " << kScoresFile << " can't be written\n";
  }
  return static_cast<int>(place);
}

std::string Today() {
  const std::time_t now = vask::platform::WallClockSeconds();
  std::tm local = {};
  localtime_r(&now, &local);
  std::array<char, 32> text = {};
  std::strftime(text.data(), text.size(), "%Y-%m-%d", &local);
  return text.data();
}

}  // namespace brumble
