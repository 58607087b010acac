#include "utils/assert.h"

#include <algorithm>
#include <utility>

#include "utils/log/log.h"
#include "utils/trim.h"

namespace vask {
namespace {

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
  LogErrors("Assertion failed: " + assertion.GetExpression() + " (" + assertion.GetFile() + ":" +
            std::to_string(assertion.GetLine()) + ")");
}

void LogErrors(std::string_view text) {
  static bool isLogging = false;
  CLog* log = CLog::PeekSingletonPtr();
  if (log == nullptr || std::exchange(isLogging, true)) {
    return;
  }
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    log->Error() << line << "\n";
    text.remove_prefix(std::min(text.size(), line.size() + 1));
  }
  isLogging = false;
}

}  // namespace vask
