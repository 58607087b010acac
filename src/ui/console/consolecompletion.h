#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vask {

// What a console knows, commands and variables in lower case.
struct SConsoleNames {
  std::vector<std::string> commands;
  std::vector<std::string> variables;
  std::vector<std::string> tasks;
};

// What has become of a word that was begun.
struct SCompletion {
  std::size_t typed = 0;  // how many characters, at the end of the line, `word` takes the place of
  std::string word;
  std::vector<std::string> choices;  // sorted; empty unless there are several
};

// Completes the last word of a line as far as all names agree that begin with it. Commands and
// variables match without regard to case. Task names match exactly and get "::" behind, but not
// within parentheses: there it would make a call of the task out of the whole line. What follows a
// "::" is the task's own matter.
SCompletion CompleteWord(std::string_view line, const SConsoleNames& names);

}  // namespace vask
