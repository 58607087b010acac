#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace vask::test {

// The full path of a file or folder of the source tree, such as "runtime/data".
std::string SourcePath(const std::string& name);

// All that is in the file; empty without one.
inline std::string FileText(const std::filesystem::path& file) {
  return (std::ostringstream() << std::ifstream(file, std::ios::binary).rdbuf()).str();
}

inline void WriteFile(const std::filesystem::path& file, const std::string& text) {
  std::ofstream(file, std::ios::binary) << text;
}

// The example in a section of a page of docs/: its indented lines. The test fails without any.
inline std::string DocExample(const std::string& section, const std::string& name = "files.md") {
  std::ifstream page(SourcePath("docs/" + name));
  std::string example, line;
  while (std::getline(page, line) && line != "## " + section) {
  }
  while (std::getline(page, line) && !line.starts_with("## ")) {
    example += line.starts_with("    ") ? line.substr(4) + "\n" : "";
  }
  EXPECT_NE(example, "") << section << " in " << name;
  return example;
}

}  // namespace vask::test
