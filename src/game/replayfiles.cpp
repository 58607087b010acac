#include "game/replayfiles.h"

#include "game/scores.h"
#include "platform/process.h"
#include "platform/wallclock.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace brumble {
namespace {

constexpr std::size_t kLastReplays = 10;
constexpr std::string_view kEnding = ".replay";
constexpr std::string_view kForm = "dddd-dd-dd_dddddd_d";  // and what may follow

bool IsOurs(std::string_view name) {
  if (name.size() < kForm.size() + kEnding.size() || !name.ends_with(kEnding)) {
    return false;
  }
  const auto fits = [](char form, char c) {
    return form == 'd' ? std::isdigit(static_cast<unsigned char>(c)) != 0 : c == form;
  };
  name.remove_suffix(kEnding.size());
  return std::equal(kForm.begin(), kForm.end(), name.begin(), fits) &&
         name.find_first_not_of("0123456789-", kForm.size()) == std::string_view::npos;
}

using CDatedFile = std::pair<std::filesystem::file_time_type, std::string>;

std::vector<CDatedFile> OurFiles() {
  std::vector<CDatedFile> files;
  std::error_code error;
  for (std::filesystem::directory_iterator file(kReplayFolder, error), end; !error && file != end;
       file.increment(error)) {
    if (IsOurs(file->path().filename().string())) {
      std::error_code ignored;  // it has gone just now
      files.emplace_back(file->last_write_time(ignored), file->path().string());
    }
  }
  return files;
}

}  // namespace

std::string MakeReplayFolder() {
  std::error_code error;
  std::filesystem::create_directory(kReplayFolder, error);
  return error ? error.message() : "";
}

std::string NewReplayName(int number) {
  const std::time_t now = vask::platform::WallClockSeconds();
  std::tm local = {};
  localtime_r(&now, &local);
  std::array<char, 64> moment = {};
  std::strftime(moment.data(), moment.size(), "/%Y-%m-%d_%H%M%S_", &local);
  return kReplayFolder + std::string(moment.data()) +
         std::to_string(vask::platform::ProcessNumber()) +
         (number > 1 ? "-" + std::to_string(number) : "") + std::string(kEnding);
}

// By the time of the last block, as the names tell the local time, which goes back an hour in
// autumn.
void RemoveOldReplays() {
  std::vector<CDatedFile> files = OurFiles();
  std::sort(files.rbegin(), files.rend());
  const auto scores = ReadScores();
  if (!scores) {
    return;  // they may name each of the files
  }
  for (std::size_t i = kLastReplays; i < files.size(); ++i) {
    const std::string& file = files[i].second;
    const bool isBest = std::any_of(scores->begin(), scores->end(), [&file](const SScore& score) {
      return score.recording == file;
    });
    if (!isBest) {
      std::error_code ignored;  // it is tried again after the next game
      std::filesystem::remove(file, ignored);
    }
  }
}

}  // namespace brumble
