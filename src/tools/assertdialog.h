#pragma once

#include "utils/assert.h"

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vask {

namespace platform {
class CNativeWindow;
}

// Shows each failed assertion in a small window of its own, in which the developer sees what
// failed, changes the watched variables, and goes on, breaks into the debugger, aborts, mails a
// report, or wants to hear no more of this assertion or of any. The program stands still meanwhile.
// The window is as high as the text of the failure needs; of one that would make it higher than 600
// pixels, the wheel brings up the rest.
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
  // Everything below the text stands so many pixels further down.
  void AddControls(platform::CNativeWindow& window, const std::string& text, int shift);
  void AddVariables(platform::CNativeWindow& window, int y);
  void OnClick(platform::CNativeWindow& window, int button);
  void SendMail(platform::CNativeWindow& window);
  void Change(platform::CNativeWindow& window, std::size_t row);
  void Report(const std::string& reason);
  Identity CurrentIdentity() const;

  std::set<Identity> myIgnored;
  std::set<Identity> myReported;
  const CAssertion* myCurrent = nullptr;  // set while the dialog is open
  // The numbers of controls.
  std::size_t myDescription = 0;
  std::size_t myMailResult = 0;
  std::vector<std::size_t> myValues;  // the variables'
};

}  // namespace vask
