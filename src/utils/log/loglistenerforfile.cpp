#include "utils/log/loglistenerforfile.h"

namespace vask {

CLogListenerForFile::CLogListenerForFile(const std::string& fileName, const std::string& version,
                                         bool keepMessages)
    : myFile(std::make_unique<CLogFile>(fileName, version, keepMessages)) {}

void CLogListenerForFile::OnLog(const std::string& line, int level) {
  if (level < 0 || level >= myMinLevel) {
    myFile->WriteLine(line, level);
  }
}

}  // namespace vask
