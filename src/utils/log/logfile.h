#pragma once

#include <map>
#include <string>
#include <vector>

namespace vask {

// Writes lines into a text file, each after the four-character marker of its level and indented by
// the depth of the open blocks. The file is complete on disk after every line. When the file cannot
// be written its lines are lost silently: there is no other place to report it to.
class CLogFile {
 public:
  // Discards the old content and writes a header, unless this file was the last one to be started
  // in this run: then it is continued. With `keepMessages` the destructor appends a summary of the
  // warnings and errors.
  CLogFile(std::string fileName, std::string version, bool keepMessages);
  ~CLogFile();
  CLogFile(const CLogFile&) = delete;
  CLogFile& operator=(const CLogFile&) = delete;

  // `line` includes its line end. The block levels change the depth; they come with an empty
  // line, which is not written.
  void WriteLine(const std::string& line, int level);

 private:
  void WriteHeader();
  void WriteSummary() const;
  void KeepMessage(const std::string& line, int level);
  void Append(const std::string& text) const;

  std::string myFileName;
  std::string myVersion;
  bool myKeepMessages;
  int myIndent = 0;  // open blocks; below zero after too many ends, until the next line is written
  std::string myIndentUnit = "  ";
  std::vector<std::string> myMessages;
  std::map<int, std::string> myMarkers;
};

}  // namespace vask
