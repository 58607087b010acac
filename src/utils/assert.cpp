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

// Never destroyed, since static destructors may still assert.
struct SNote {
  AssertNote ask;
  std::string answer;
  bool isAsked = false;  // at this moment
};
SNote& Note() {
  static SNote& note = *new SNote;
  return note;
}

// A failure while it answers has no note of its own.
void AskForNote() {
  SNote& note = Note();
  if (note.ask == nullptr || std::exchange(note.isAsked, true)) {
    return;
  }
  note.answer = note.ask();
  note.isAsked = false;
}

}  // namespace

std::string CAssertion::TakeName(std::string_view& names) {
  const std::string_view name = names.substr(0, names.find(','));
  names.remove_prefix(std::min(names.size(), name.size() + 1));
  return std::string(Trim(name));
}

void SetAssertHandler(IAssertHandler* handler) { ourHandler = handler; }

void BanAsserts(bool ban) { ourBan = ban; }

bool AreAssertsBanned() { return ourBan; }

void SetAssertNote(AssertNote note) {
  Note().ask = std::move(note);
  Note().answer.clear();
}

const std::string& GetAssertNote() { return Note().answer; }

void AssertFailed(const CAssertion& assertion) {
  if (ourBan) {
    return;
  }
  AskForNote();
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
  LogErrors(GetAssertNote());
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
