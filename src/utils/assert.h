#pragma once

#include "utils/containers/varref.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace vask {

// A check that failed: what was expected where, and the variables that explain the failure.
class CAssertion {
 public:
  CAssertion(std::string expression, std::string file, int line, std::string message = "")
      : myExpression(std::move(expression)),
        myFile(std::move(file)),
        myLine(line),
        myMessage(std::move(message)) {}

  // Watches variables, which must outlive the assertion; a constant one can't be changed. `names`
  // are their names, separated by commas.
  template <typename... T>
  void Watch(std::string_view names, T&... variables) {
    (myVariables.push_back(NewReference(TakeName(names), variables)), ...);
  }

  const std::string& GetExpression() const { return myExpression; }
  const std::string& GetFile() const { return myFile; }
  int GetLine() const { return myLine; }
  // The message of the check, or its expression where it has none.
  const std::string& GetMessage() const { return myMessage.empty() ? myExpression : myMessage; }
  const std::vector<std::unique_ptr<CVarRefBase>>& GetVariables() const { return myVariables; }

 private:
  template <typename T>
  static std::unique_ptr<CVarRefBase> NewReference(std::string name, T& variable) {
    if constexpr (std::is_const_v<T>) {
      return std::make_unique<CVarRefConst<std::remove_const_t<T>>>(&variable, std::move(name));
    } else {
      return std::make_unique<CVarRef<T>>(&variable, std::move(name));
    }
  }
  // Cuts the first name off the front.
  static std::string TakeName(std::string_view& names);

  std::string myExpression;
  std::string myFile;
  int myLine;
  std::string myMessage;
  std::vector<std::unique_ptr<CVarRefBase>> myVariables;
};

// Called for each failed assertion. When it returns, the failing code goes on.
class IAssertHandler {
 public:
  virtual ~IAssertHandler() = default;
  virtual void OnAssertFailed(const CAssertion& assertion) = 0;
};

// One for the process, not owned; null for none: then failures are only logged, as errors.
void SetAssertHandler(IAssertHandler* handler);

// While assertions are banned, failures are ignored. Off at start.
void BanAsserts(bool ban);
bool AreAssertsBanned();

// Is asked at each failure, before the handler, for what else should be told of it: a line or more,
// without an end; empty for nothing. One for the process, null for none.
using AssertNote = std::function<std::string()>;
void SetAssertNote(AssertNote note);
// What it has answered at the last failure.
const std::string& GetAssertNote();

// What the two checks below do when they fail.
void AssertFailed(const CAssertion& assertion);

// Writes the failure to the log, as an error on one line, and the note below it.
void LogAssertion(const CAssertion& assertion);

// Writes the text to the log, each of its lines as an error; to the standard error stream when
// there is no log. Nothing happens when the log's own listeners call it.
void LogErrors(std::string_view text);

}  // namespace vask

// Checks the expression in every build. When it is false the failure is reported, and the code
// after the check goes on: it must be able to. A message may follow the expression.
#define VASK_ASSERT(expression, ...)                                                       \
  do {                                                                                     \
    if (!(expression)) {                                                                   \
      ::vask::AssertFailed(                                                                \
          ::vask::CAssertion(#expression, __FILE__, __LINE__ __VA_OPT__(, ) __VA_ARGS__)); \
    }                                                                                      \
  } while (false)

// The same with variables that the developer sees and, unless they are constant, may change:
//
//     VASK_ASSERT_WATCHING(index < count, index, count);
#define VASK_ASSERT_WATCHING(expression, ...)                         \
  do {                                                                \
    if (!(expression)) {                                              \
      ::vask::CAssertion vaskFailed(#expression, __FILE__, __LINE__); \
      vaskFailed.Watch(#__VA_ARGS__, __VA_ARGS__);                    \
      ::vask::AssertFailed(vaskFailed);                               \
    }                                                                 \
  } while (false)
