#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brumble {

// One of the best games. In the file it is a line: the fields in this order, separated by blanks.
struct SScore {
  int score = 0;
  std::string date;             // YYYY-MM-DD
  std::string recording = "-";  // a file, or "-" for none
  std::string more;             // what else is in the line, which is kept as it is
};

inline constexpr std::size_t kBestScores = 10;
inline constexpr const char* kScoresFile = "scores.txt";

// The file's scores, best first, at most kBestScores. Of a missing file none. A line that is no
// score is skipped; the first one that a run of the program meets is logged.
// Nothing, which is logged, when the file is there but can't be read.
std::optional<std::vector<SScore>> ReadScores();

// The best score in the file; 0 without one.
int BestScore();

// Enters the score into the file, after those that are as good, and keeps the best. Several
// programs may do that at once. Returns its place, 1 for the best, 0 when it is not among the best.
// A file that can't be written is logged; the place is then that in the old file. One that can't be
// read is left as it is, and there is no place.
int EnterScore(const SScore& score);

// Today as a score's date, in the local time zone.
std::string Today();

}  // namespace brumble
