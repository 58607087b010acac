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

// Shows each failed assertion in a small window, in which the developer sees what failed, changes
// the watched variables, and continues, breaks into the debugger, aborts, mails a report, or
// ignores this assertion or all. The program waits meanwhile. The window is as high as the text
// needs, up to 600 pixels; the wheel scrolls the rest of a longer text.
//
// Where the window can't be shown, the assertion is reported to the log and the standard error
// stream, once for each place in the source, and the program continues. An assertion that fails
// while another one is shown is only logged.
class CAssertDialog : public IAssertHandler {
 public:
  // Installs itself as the process's assert handler, and uninstalls itself.
  CAssertDialog();
  ~CAssertDialog() override;
  CAssertDialog(const CAssertDialog&) = delete;
  CAssertDialog& operator=(const CAssertDialog&) = delete;

  void OnAssertFailed(const CAssertion& assertion) override;

 private:
  // The place of an assertion in the source.
  using Identity = std::pair<std::string, int>;

  // Returns why it could not be shown; empty when it was.
  std::string Show();
  // Everything below the text is moved down by `shift` pixels.
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
