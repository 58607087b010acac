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

// The result of completing a word.
struct SCompletion {
  std::size_t typed = 0;  // how many characters at the end of the line `word` replaces
  std::string word;
  std::vector<std::string> choices;  // sorted; empty unless there are several
};

// Completes the last word of a line as far as all names that begin with it agree. Commands and
// variables match without regard to case. Task names match exactly and get a "::" after them,
// except within parentheses, where it would make the whole line a call of the task. A word after a
// "::" is not completed: only the task knows its commands.
SCompletion CompleteWord(std::string_view line, const SConsoleNames& names);

}  // namespace vask
