#pragma once

#include <string>

namespace vask {

class CConsoleParams;

// One command of a console. The result goes back to the caller that executed the line; an empty
// text means success.
class CConsoleCommand {
 public:
  virtual ~CConsoleCommand() = default;
  // The call with a parameter list (never null); by default the same as without one.
  virtual std::string Execute(CConsoleParams* params);
  // The call without a parameter list; where one is needed it returns the usage text.
  virtual std::string Execute() = 0;
  // What "help" tells of the command; empty when it is told elsewhere, or nowhere.
  virtual std::string GetHelp() const { return {}; }
};

}  // namespace vask
