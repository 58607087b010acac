#pragma once

#include "utils/log/log.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vask::test {

// Collects what is logged while it lives.
//
//   CLogCapture log;
//   factory.Open("missing.bmp");
//   EXPECT_TRUE(log.Has("missing.bmp"));
class CLogCapture : public ILogListener {
 public:
  // A line without its line end; a block mark has an empty text and a negative level.
  struct SLine {
    std::string text;
    int level;
  };

  CLogCapture() { CLog::GetSingletonPtr()->AddListener(this); }
  ~CLogCapture() override { CLog::GetSingletonPtr()->RemoveListener(this); }
  CLogCapture& operator=(CLogCapture&&) = delete;  // neither moved nor copied

  void OnLog(const std::string& line, int level) override {
    myLines.push_back({line.substr(0, line.find('\n')), level});
  }

  const std::vector<SLine>& Lines() const { return myLines; }

  // How many lines contain the part.
  std::size_t Count(std::string_view part) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        myLines, [part](const SLine& line) { return line.text.find(part) != std::string::npos; }));
  }
  bool Has(std::string_view part) const { return Count(part) > 0; }

  // All lines, each with a line end; block marks are left out.
  std::string Text() const {
    std::string text;
    for (const SLine& line : myLines) {
      text += line.level < 0 ? "" : line.text + "\n";
    }
    return text;
  }

  void Clear() { myLines.clear(); }

 private:
  std::vector<SLine> myLines;
};

}  // namespace vask::test
