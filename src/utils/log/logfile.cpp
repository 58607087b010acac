#include "utils/log/logfile.h"

#include "utils/log/log.h"
#include "utils/outputfile.h"

#include <algorithm>
#include <ctime>
#include <string_view>
#include <utility>

namespace vask {

namespace {

// The file that was started last. Never destroyed, since static destructors may still log.
std::string& LastFileName() {
  static std::string& name = *new std::string;
  return name;
}

std::string LocalTime(const char* format) {
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  char text[64] = "";
  if (local != nullptr) {
    std::strftime(text, sizeof text, format, local);
  }
  return text;
}

}  // namespace

CLogFile::CLogFile(std::string fileName, std::string version, bool keepMessages)
    : myFileName(std::move(fileName)),
      myVersion(std::move(version)),
      myKeepMessages(keepMessages),
      myMarkers{{kLogBlockBegin, "(+) "}, {kLogBlockEnd, "(-) "}, {kLogDebug, "(d) "},
                {kLogNormal, "( ) "},     {kLogWarning, "(!) "},  {kLogError, "<!> "}} {
  if (LastFileName() == myFileName) {
    return;
  }
  OpenOutputFile(myFileName);  // empties it
  LastFileName() = myFileName;
  WriteHeader();
}

CLogFile::~CLogFile() {
  if (myKeepMessages) {
    WriteSummary();
  }
}

void CLogFile::WriteLine(const std::string& line, int level) {
  KeepMessage(line, level);
  if (level == kLogBlockBegin) {
    ++myIndent;
  } else if (level == kLogBlockEnd) {
    --myIndent;
  }
  if (line.empty()) {
    return;
  }
  const auto marker = myMarkers.find(level);
  std::string text = marker == myMarkers.end() ? std::string() : marker->second;
  myIndent = std::max(myIndent, 0);
  for (int depth = 0; depth < myIndent; ++depth) {
    text += myIndentUnit;
  }
  Append(text + line);
}

void CLogFile::WriteHeader() {
  const std::string rule = std::string(62, '-') + "\n";
  WriteLine(rule, kLogNormal);
  WriteLine("New log created on " + LocalTime("%a,%b %d,%I:%M %p") + "\n", kLogNormal);
  WriteLine("Using " + myVersion + "\n", kLogNormal);
  WriteLine("Build in Unknown compiler at " __DATE__ " " __TIME__ "\n", kLogNormal);
  WriteLine(rule, kLogNormal);
}

void CLogFile::WriteSummary() const {
  const auto count = [this](std::string_view tag) {
    return std::count_if(myMessages.begin(), myMessages.end(), [tag](const std::string& message) {
      return message.find(tag) != std::string::npos;
    });
  };
  const std::string rule(24, '-');
  std::string text = "\n" + rule + myVersion + rule + "\n\n";
  for (const std::string& message : myMessages) {
    text += message + "\n";
  }
  text += "\n" + myVersion + " - " + std::to_string(count("[ERROR]")) + " error(s), " +
          std::to_string(count("[WARNING]")) + " warning(s)\n";
  Append(text);
}

void CLogFile::KeepMessage(const std::string& line, int level) {
  if (!myKeepMessages || (level != kLogWarning && level != kLogError)) {
    return;
  }
  const char* tag = level == kLogError ? " [ERROR] " : " [WARNING] ";
  myMessages.push_back(LocalTime("%H:%M:%S") + tag + line);
}

// Opened and closed for each line, so that nothing is lost when the program crashes.
void CLogFile::Append(const std::string& text) const {
  OpenOutputFile(myFileName, std::ios::app) << text;
}

}  // namespace vask
