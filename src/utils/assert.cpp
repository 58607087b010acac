#include "utils/assert.h"

#include <algorithm>

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
  if (CLog* log = CLog::PeekSingletonPtr()) {
    log->Error() << "Assertion failed: " << assertion.GetExpression() << " (" << assertion.GetFile()
                 << ":" << assertion.GetLine() << ")\n";
  }
}

}  // namespace vask
