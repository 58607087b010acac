#pragma once

#include "support/files.h"
#include "utils/log/log.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <numeric>
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
  CLogCapture() { CLog::GetSingletonPtr()->AddListener(this); }
  ~CLogCapture() override { CLog::GetSingletonPtr()->RemoveListener(this); }
  CLogCapture& operator=(CLogCapture&&) = delete;  // neither moved nor copied

  void OnLog(const std::string& line, int) override { myLines.push_back(line); }

  // Each with its line end; the mark of a block is an empty one.
  const std::vector<std::string>& Lines() const { return myLines; }

  // How many lines contain the part.
  std::size_t Count(std::string_view part) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        myLines, [part](const auto& line) { return line.find(part) != std::string::npos; }));
  }
  bool Has(std::string_view part) const { return Count(part) > 0; }

  std::string Text() const {
    return std::accumulate(myLines.begin(), myLines.end(), std::string());
  }

  void Clear() { myLines.clear(); }

 private:
  std::vector<std::string> myLines;
};

// What the action adds to the file of the log.
inline std::string Logged(const std::function<void()>& action) {
  Log();
  const std::size_t before = FileText(CLog::kFileName).size();
  action();
  return FileText(CLog::kFileName).substr(before);
}

}  // namespace vask::test
