#pragma once

#include <string>
#include <vector>

#include "console/console.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"

namespace vask::test {

// Tells how it was called: "bare", or its parameters with their kinds, as "[n:10][s:abc]".
class CEcho : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    std::string text;
    for (int i = 0; i < params->Size(); ++i) {
      text += (params->IsType(i, CVariable::kNumber) ? "[n:" : "[s:") + params->GetString(i) + "]";
    }
    calls.push_back(text);
    return text.empty() ? "none" : text;
  }
  std::string Execute() override {
    calls.push_back("bare");
    return "bare";
  }

  std::vector<std::string> calls;
};

}  // namespace vask::test
