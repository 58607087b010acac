#include "input/mouseevent.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace vask {
namespace {

// By event type.
constexpr std::array<const char*, 3> kTypeWords = {"mm", "mu", "md"};

// The farthest position that is played, in pixels: beyond every screen, but small enough for
// listeners to add and subtract positions. A damaged file may hold anything.
constexpr long long kFarthest = 1'000'000;

long long ToNumber(const std::string& word) { return std::strtoll(word.c_str(), nullptr, 10); }

std::int32_t ToPosition(const std::string& word) {
  return static_cast<std::int32_t>(std::clamp(ToNumber(word), -kFarthest, kFarthest));
}

std::vector<std::string> SplitAtBlanks(const std::string& line) {
  std::istringstream stream(line);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) {
    words.push_back(word);
  }
  return words;
}

}  // namespace

std::string SMouseEvent::ToLine() const {
  const std::string front =
      std::to_string(time) + " " + kTypeWords.at(static_cast<std::size_t>(type)) + " ";
  if (type == kMove) {
    return front + std::to_string(x) + " " + std::to_string(y);
  }
  return front + std::to_string(button);
}

std::optional<SMouseEvent> SMouseEvent::FromLine(const std::string& line) {
  const std::vector<std::string> words = SplitAtBlanks(line);
  if (words.size() < 2) {
    return std::nullopt;
  }
  const auto* const found = std::ranges::find(kTypeWords, words[1]);
  if (found == kTypeWords.end()) {
    return std::nullopt;
  }
  SMouseEvent event;
  event.time = static_cast<std::uint32_t>(ToNumber(words[0]));
  event.type = static_cast<EType>(found - kTypeWords.begin());
  if (event.type == kMove) {
    if (words.size() >= 4) {
      event.x = ToPosition(words[2]);
      event.y = ToPosition(words[3]);
    }
    return event;
  }
  if (words.size() < 3) {
    return std::nullopt;
  }
  event.button = static_cast<std::uint32_t>(ToNumber(words[2]));
  return event;
}

std::int32_t SeedFromLine(const std::string& line) {
  return static_cast<std::int32_t>(ToNumber(line));
}

}  // namespace vask
