#include "tools/assertdialog.h"

#include "gfx/sdl/screenrelease.h"
#include "platform/nativewindow.h"
#include "platform/process.h"
#include "tools/assertmail.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>

namespace vask {

namespace {

using platform::CNativeWindow;
using platform::EControlKind;

CAssertDialog theDialog;

constexpr const char* kDescriptionPrompt =
    "Write a little description on what happened and then press the mail button";

// In pixels; what is below the text, with a text that fits.
constexpr int kWidth = 350;
constexpr int kHeight = 240;          // without variables
constexpr int kGreatestHeight = 600;  // unless it takes more to show the variables
constexpr platform::SBox kText = {10, 10, 280, 90};
constexpr platform::SBox kDescription = {10, 95, 280, 50};
constexpr platform::SBox kMailResult = {10, 207, 330, 28};  // without variables
constexpr int kVariables = 150;
constexpr int kRowHeight = 25;
constexpr int kControlHeight = 20;

enum EButton : int {
  kContinue = 101,
  kDebug = 102,
  kAbort = 103,
  kIgnore = 104,
  kIgnoreAll = 105,
  kSendMail = 106,
  kFirstChange = 200,  // the "Change" buttons of the variables, in their order
};

struct SButton {
  const char* label;
  int x;
  int y;  // without variables
  EButton id;
};
constexpr SButton kButtons[] = {
    {"Ignore", 10, 155, kIgnore},       {"Ignore All", 90, 155, kIgnoreAll},
    {"Send mail", 170, 155, kSendMail}, {"Continue", 10, 180, kContinue},
    {"Debug", 90, 180, kDebug},         {"Abort", 170, 180, kAbort},
};

std::string ConstPrefix(const CVarRefBase& variable) {
  return variable.IsReadOnly() ? "const " : "";
}

std::string Position(const CAssertion& assertion) {
  return assertion.GetFile() + ", line " + std::to_string(assertion.GetLine());
}

bool HasMessage(const CAssertion& assertion) {
  return assertion.GetMessage() != assertion.GetExpression();
}

std::string AssertionText(const CAssertion& assertion) {
  const std::string message = HasMessage(assertion) ? assertion.GetMessage() : "Assertion failed:";
  const std::string note = GetAssertNote().empty() ? "" : "\n\n" + GetAssertNote();
  return message + "\n" + Position(assertion) + "\n\n" + assertion.GetExpression() + note;
}

platform::SBox Lower(const platform::SBox& box, int by) {
  return {box.x, box.y + by, box.width, box.height};
}

// How far everything below a text of that height has to move down.
int ShiftBelow(int textHeight, int windowHeight) {
  const int missing = textHeight - (kDescription.y - kText.y);
  return std::clamp(missing, 0, std::max(0, kGreatestHeight - windowHeight));
}

void Close(CNativeWindow& window) {
  window.Destroy();
  window.PostQuitMessage();
}

}  // namespace

CAssertDialog::CAssertDialog() { SetAssertHandler(this); }

CAssertDialog::~CAssertDialog() { SetAssertHandler(nullptr); }

void CAssertDialog::OnAssertFailed(const CAssertion& assertion) {
  if (myCurrent != nullptr) {
    LogAssertion(assertion);
    return;
  }
  myCurrent = &assertion;
  if (!myIgnored.contains(CurrentIdentity())) {
    const std::string failure = Show();
    if (!failure.empty()) {
      Report(failure);
    }
  }
  myCurrent = nullptr;
}

std::string CAssertDialog::Show() {
  LogErrors(GetAssertNote());
  const int height = kHeight + static_cast<int>(myCurrent->GetVariables().size()) * kRowHeight;
  CNativeWindow window({"CAssertError",
                        platform::kRedrawOnWidth | platform::kRedrawOnHeight | platform::kNoClose,
                        platform::ENativeCursor::kArrow,
                        [this](CNativeWindow& self, int button) { OnClick(self, button); }});
  if (!window.Create("CAssert error",
                     {platform::kDefaultPosition, platform::kDefaultPosition, kWidth, height},
                     platform::kCaption | platform::kSystemMenu) ||
      !window.SetDefaultFont()) {
    return window.GetError();
  }
  const std::string text = AssertionText(*myCurrent);
  const int shift = ShiftBelow(window.GetTextHeight(text, kText.width), height);
  window.Resize(kWidth, height + shift);
  AddControls(window, text, shift);
  const CScreenRelease release;
  window.Show();
  return window.RunMessageLoop() ? "" : window.GetError();
}

void CAssertDialog::AddControls(CNativeWindow& window, const std::string& text, int shift) {
  window.AddControl(
      EControlKind::kStatic, text,
      {kText.x, kText.y, kText.width, std::max(kText.height, kDescription.y + shift - kText.y)});
  myDescription =
      window.AddControl(EControlKind::kEdit, kDescriptionPrompt, Lower(kDescription, shift));
  AddVariables(window, kVariables + shift);
  const int below = shift + static_cast<int>(myValues.size()) * kRowHeight;
  for (const SButton& button : kButtons) {
    window.AddControl(EControlKind::kButton, button.label,
                      {button.x, button.y + below, 75, kControlHeight}, button.id);
  }
  myMailResult = window.AddControl(EControlKind::kStatic, "", Lower(kMailResult, below));
}

void CAssertDialog::AddVariables(CNativeWindow& window, int y) {
  myValues.clear();
  int change = kFirstChange;
  for (const auto& variable : myCurrent->GetVariables()) {
    window.AddControl(EControlKind::kStatic, ConstPrefix(*variable) + variable->GetName() + " = ",
                      {10, y, 100, kControlHeight}, 0, platform::kClientEdge);
    myValues.push_back(window.AddControl(EControlKind::kEdit, variable->GetString(),
                                         {115, y, 100, kControlHeight}, 0,
                                         platform::kClientEdge | platform::kAutoScroll));
    window.AddControl(EControlKind::kButton, "Change", {220, y, 50, kControlHeight}, change++);
    y += kRowHeight;
  }
}

void CAssertDialog::OnClick(CNativeWindow& window, int button) {
  switch (button) {
    case kContinue:
      Close(window);
      break;
    case kDebug:
      platform::BreakIntoDebugger();
      Close(window);
      break;
    case kAbort:
      std::abort();
    case kIgnore:
      myIgnored.insert(CurrentIdentity());
      Close(window);
      break;
    case kIgnoreAll:
      BanAsserts(true);
      Close(window);
      break;
    case kSendMail:
      SendMail(window);
      break;
    default:
      Change(window, static_cast<std::size_t>(button - kFirstChange));
  }
}

void CAssertDialog::SendMail(CNativeWindow& window) {
  window.SetText(myMailResult, "Sending...");
  window.Refresh();
  const std::string error = MailAssertion(*myCurrent, window.GetText(myDescription));
  window.SetText(myMailResult, error.empty() ? "Sent" : error);
  window.DropInput();
}

void CAssertDialog::Change(CNativeWindow& window, std::size_t row) {
  CVarRefBase& variable = *myCurrent->GetVariables()[row];
  variable.SetString(window.GetText(myValues[row]));
  // What the variable did not take is to be seen.
  window.SetText(myValues[row], variable.GetString());
}

void CAssertDialog::Report(const std::string& reason) {
  if (!myReported.insert(CurrentIdentity()).second) {
    return;
  }
  std::string report = "Assertion failed: " + myCurrent->GetExpression() + "\n";
  if (HasMessage(*myCurrent)) {
    report += "  " + myCurrent->GetMessage() + "\n";
  }
  report += "  " + Position(*myCurrent) + "\n";
  for (const auto& variable : myCurrent->GetVariables()) {
    report +=
        "  " + ConstPrefix(*variable) + variable->GetName() + " = " + variable->GetString() + "\n";
  }
  if (!GetAssertNote().empty()) {
    report += "  " + GetAssertNote() + "\n";
  }
  report += "  It can't be shown in a window (" + reason +
            "). The program goes on; this place is not reported again.\n";
  std::cerr << report << std::flush;
  LogErrors(report);
}

CAssertDialog::Identity CAssertDialog::CurrentIdentity() const {
  return {myCurrent->GetFile(), myCurrent->GetLine()};
}

}  // namespace vask
