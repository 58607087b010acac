#include "utils/assert.h"

#include "utils/log/log.h"
#include "utils/trim.h"

#include <algorithm>
#include <iostream>
#include <utility>

namespace vask {
namespace {

// Where the log ends a line, and forgets its level.
constexpr std::string_view kLineEnds("\n\r\0", 3);

IAssertHandler* ourHandler = nullptr;
bool ourBan = false;

}  // namespace

std::string CAssertion::TakeName(std::string_view& names) {
  const std::string_view name = names.substr(0, names.find(','));
  names.remove_prefix(std::min(names.size(), name.size() + 1));
  return std::string(Trim(name));
}

void SetAssertHandler(IAssertHandler* handler) { ourHandler = handler; }

void BanAsserts(bool ban) { ourBan = ban; }

bool AreAssertsBanned() { return ourBan; }

void AssertFailed(const CAssertion& assertion) {
  if (ourBan) {
    return;
  }
  if (ourHandler != nullptr) {
    ourHandler->OnAssertFailed(assertion);
    return;
  }
  LogAssertion(assertion);
}

void LogAssertion(const CAssertion& assertion) {
  const std::string& message = assertion.GetMessage();
  LogErrors("Assertion failed: " + assertion.GetExpression() + " (" + assertion.GetFile() + ":" +
            std::to_string(assertion.GetLine()) + ")" +
            (message == assertion.GetExpression() ? "" : ": " + message));
}

void LogErrors(std::string_view text) {
  static bool isLogging = false;
  CLog* log = CLog::PeekSingletonPtr();
  if (log == nullptr) {
    std::cerr << text << std::endl;
    return;
  }
  if (std::exchange(isLogging, true)) {
    return;
  }
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find_first_of(kLineEnds));
    log->Error() << line << "\n";
    text.remove_prefix(std::min(text.size(), line.size() + 1));
  }
  isLogging = false;
}

}  // namespace vask
