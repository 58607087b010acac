#pragma once

#include "utils/log/log.h"
#include "utils/log/logfile.h"

#include <memory>
#include <string>

namespace vask {

// Writes the lines of the log into a file.
class CLogListenerForFile : public ILogListener {
 public:
  CLogListenerForFile(const std::string& fileName, const std::string& version, bool keepMessages);

  void OnLog(const std::string& line, int level) override;

  // Lines below the level are left out; block marks always count.
  void SetMinLevel(int level) { myMinLevel = level; }

 private:
  std::unique_ptr<CLogFile> myFile;
  int myMinLevel = kLogNormal;
};

}  // namespace vask
