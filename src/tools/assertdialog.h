#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "utils/assert.h"

namespace vask {

namespace platform {
class CNativeWindow;
}

// Shows each failed assertion in a small window of its own, in which the developer sees what
// failed, changes the watched variables, and goes on, breaks into the debugger, aborts, mails a
// report, or wants to hear no more of this assertion or of any. The program stands still meanwhile.
//
// Where the window can't be shown, the log and the standard error stream tell of the assertion,
// once for each place in the source, and the program goes on. An assertion that fails while another
// one is shown is only logged.
class CAssertDialog : public IAssertHandler {
 public:
  // Becomes the process's assert handler, and leaves that post.
  CAssertDialog();
  ~CAssertDialog() override;
  CAssertDialog(const CAssertDialog&) = delete;
  CAssertDialog& operator=(const CAssertDialog&) = delete;

  void OnAssertFailed(const CAssertion& assertion) override;

 private:
  // Where in the source an assertion stands.
  using Identity = std::pair<std::string, int>;

  // Answers why it could not be shown; empty when it was.
  std::string Show();
  void AddVariables(platform::CNativeWindow& window);
  void OnClick(platform::CNativeWindow& window, int button);
  void Change(platform::CNativeWindow& window, std::size_t row);
  void Report(const std::string& reason);
  Identity CurrentIdentity() const;

  std::set<Identity> myIgnored;
  std::set<Identity> myReported;
  const CAssertion* myCurrent = nullptr;  // set while the dialog is open
  std::size_t myDescription = 0;          // the controls' numbers: the description's,
  std::vector<std::size_t> myValues;      // and those of the variables' values
};

}  // namespace vask
