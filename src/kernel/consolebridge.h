#pragma once

#include "console/console.h"

namespace vask {

// A console that reaches the tasks (the namespace of a line is a task's name) and can echo what it
// executes into the log.
class CConsoleBridge : public CConsole {
 public:
  ~CConsoleBridge() override;
  // With `echo` the line and its result are written to the log.
  std::string Execute(const std::string& line, bool echo) override;
  std::string ExecuteInNamespace(const std::string& space, const std::string& command) override;
};

}  // namespace vask
