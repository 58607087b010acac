#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vask {

// Takes a line "a = b = value" apart into the names and the value, as if each right side were
// parsed as a line of its own, but in linear time and without recursion: a script line has no
// length limit. The chain ends where a right side is no assignment: at a command or a plain word.
class CAssignmentChain {
 public:
  using IsCommand = std::function<bool(const std::string& name)>;

  // The line, which must outlive the chain, contains a "=" and is not special (CConsole). No name
  // longer than `longestCommand` is looked up.
  CAssignmentChain(std::string_view line, std::size_t longestCommand, const IsCommand& isCommand);

  // Trimmed, from the outermost to the innermost; at least one.
  const std::vector<std::string_view>& Names() const { return myNames; }
  // The line whose result is the innermost value; may be empty.
  std::string_view Value() const { return myValue; }

 private:
  void TakeNames(const IsCommand& isCommand);
  bool IsAssignment(std::size_t start, const IsCommand& isCommand);
  std::string_view CommandName(std::size_t start);
  void FindOpen(std::size_t start);

  std::string_view myLine;
  std::size_t myLongestCommand;
  std::vector<std::string_view> myNames;
  std::string_view myValue;
  // The first "(" (or the end of the line) at or after the position that was last looked at, and
  // the end of the text before it without its trailing blanks. Kept, since most steps share them.
  std::size_t myOpen = 0;
  std::size_t myNameEnd = 0;
};

}  // namespace vask
