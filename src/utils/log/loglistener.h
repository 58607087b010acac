#pragma once

#include <string>

namespace vask {

// Receives every line of the log.
class ILogListener {
 public:
  virtual ~ILogListener() = default;
  // `line` ends in "\n", or is empty with one of the two block levels.
  virtual void OnLog(const std::string& line, int level) = 0;
};

}  // namespace vask
