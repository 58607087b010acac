#pragma once

#include <string>

namespace vask {

class CConsoleParams;

// One command of a console. The answer goes back to whoever executed the line; empty is success.
class CConsoleCommand {
 public:
  virtual ~CConsoleCommand() = default;
  // The call with a parameter list (never null); by default the same as without one.
  virtual std::string Execute(CConsoleParams* params);
  // The call without a parameter list; where one is needed it answers how to use the command.
  virtual std::string Execute() = 0;
};

}  // namespace vask
