#include "console/assignmentchain.h"

#include "utils/trim.h"

#include <algorithm>

namespace vask {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

}  // namespace

CAssignmentChain::CAssignmentChain(std::string_view line, std::size_t longestCommand,
                                   const IsCommand& isCommand)
    : myLine(line), myLongestCommand(longestCommand) {
  TakeNames(isCommand);
}

void CAssignmentChain::TakeNames(const IsCommand& isCommand) {
  std::size_t start = 0;
  do {
    const std::size_t equals = myLine.find('=', start);
    if (equals == start) {
      // Nothing comes before the sign, so what follows it is taken for the name.
      myNames.push_back(Trim(myLine.substr(start + 1)));
      return;
    }
    myNames.push_back(Trim(myLine.substr(start, equals - start)));
    start = equals + 1;
  } while (IsAssignment(start, isCommand));
  myValue = myLine.substr(start);
}

bool CAssignmentChain::IsAssignment(std::size_t start, const IsCommand& isCommand) {
  if (myLine.find('=', start) == kNone) {
    return false;
  }
  const std::string_view name = CommandName(start);
  return name.size() > myLongestCommand || !isCommand(std::string(name));
}

void CAssignmentChain::FindOpen(std::size_t start) {
  myOpen = std::min(myLine.find('(', start), myLine.size());
  const std::size_t last = myLine.substr(0, myOpen).find_last_not_of(kBlanks);
  myNameEnd = last == kNone ? 0 : last + 1;
}

std::string_view CAssignmentChain::CommandName(std::size_t start) {
  if (myOpen < start) {
    FindOpen(start);
  }
  const std::size_t first = myLine.find_first_not_of(kBlanks, start);
  return first >= myNameEnd ? std::string_view() : myLine.substr(first, myNameEnd - first);
}

}  // namespace vask
