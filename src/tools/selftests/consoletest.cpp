#include "console/console.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "tools/tester.h"

#include <string>

namespace vask::tester {
namespace {

// Returns its parameters, numbers in brackets.
class CEchoCommand : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    std::string result;
    for (int i = 0; i < params->Size(); ++i) {
      const std::string text = params->GetString(i);
      result += params->IsType(i, CVariable::kNumber) ? "[" + text + "]" : text + ".";
    }
    return result;
  }
  std::string Execute() override { return "bare"; }
};

// In a console of its own: the application's variables stay out of it.
bool TestConsole(STest& test) {
  const struct {
    const char* line;
    const char* result;
  } cases[] = {
      {"echo", "bare"},
      {"ECHO( 10, -2.5, .5, \"two words\", 1e5,)", "[10][-2.5][0.5]two words.1e5."},
      {"echo(1); echo // nothing", "[1]\nbare\n"},
      {"// echo", ""},
      {"a = b = 7", "7"},
      {"b", "7"},
      {"  unknown word ", "unknown word"},
  };
  CEchoCommand echo;
  CConsole console;
  console.AddCommand("Echo", &echo);
  for (const auto& c : cases) {
    const std::string result = console.Execute(c.line, false);
    VASK_TEST_ASSERT(test, result == c.result, std::string(c.line) + " returned " + result);
  }
  return false;
}

const CTestRegistrar theRegistrar(&TestConsole, "Console parsing", __FILE__);

}  // namespace
}  // namespace vask::tester
