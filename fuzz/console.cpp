// Lines of a script in one console, against a plain one.

#include "console/console.h"

#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "fuzz.h"
#include "models/console.h"

namespace {

using vask::fuzz::Text;

// Answers with what it has been given.
struct SShow : vask::CConsoleCommand {
  Text Execute(vask::CConsoleParams* params) override {
    Text shown = "(";
    for (; params->Size() > 0; params->PopFront()) {
      shown +=
          (params->IsType(0, vask::CVariable::kNumber) ? "#" : "") + params->GetString(0) + ",";
    }
    return shown + ")";
  }
  Text Execute() override { return " bare "; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 1000;  // bytes; the plain one would exhaust the stack
  SShow show;
  int count = 0;
  vask::CConsole console;
  console.AddCommand("show", &show);
  console.RegisterVariable("count", count);
  vask::fuzz::CPlainConsole plain;
  for (const Text& line : vask::fuzz::ToLines(data, std::min(size, kLongest))) {
    vask::fuzz::Require(console.Execute(line, false) == plain.Execute(line));
  }
  return 0;
}
