#include "ui/console/consolecompletion.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>

namespace vask {
namespace {

constexpr std::string_view kSeparators = " \t(),;=:";

std::string ToLower(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](unsigned char character) {
    return static_cast<char>(std::tolower(character));
  });
  return lower;
}

bool IsInParentheses(std::string_view line) {
  const std::size_t last = line.find_last_of("();");
  return last != std::string_view::npos && line[last] == '(';
}

std::set<std::string> Candidates(std::string_view word, bool isParameter,
                                 const SConsoleNames& names) {
  std::set<std::string> found;
  const std::string lower = ToLower(word);
  for (const auto* list : {&names.commands, &names.variables}) {
    std::ranges::copy_if(*list, std::inserter(found, found.end()),
                         [&](const std::string& name) { return name.starts_with(lower); });
  }
  for (const std::string& name : names.tasks) {
    if (name.starts_with(word)) {
      found.insert(isParameter ? name : name + "::");
    }
  }
  return found;
}

// With which all texts of a sorted set that is not empty begin.
std::string CommonStart(const std::set<std::string>& texts) {
  const std::string& first = *texts.begin();
  const std::string& last = *texts.rbegin();
  const auto end = std::ranges::mismatch(first, last).in1;
  return {first.begin(), end};
}

}  // namespace

SCompletion CompleteWord(std::string_view line, const SConsoleNames& names) {
  const std::size_t start = line.find_last_of(kSeparators) + 1;  // 0 when there is none
  const std::string_view word = line.substr(start);
  SCompletion completion{word.size(), std::string(word), {}};
  if (start > 0 && line[start - 1] == ':') {
    return completion;
  }
  const std::set<std::string> candidates = Candidates(word, IsInParentheses(line), names);
  if (candidates.empty()) {
    return completion;
  }
  // Names that agree with the word in different cases may have less than it in common.
  const std::string common = CommonStart(candidates);
  if (common.size() >= word.size()) {
    completion.word = common;
  }
  if (candidates.size() > 1) {
    completion.choices.assign(candidates.begin(), candidates.end());
  }
  return completion;
}

}  // namespace vask
