#pragma once

#include <fstream>
#include <string>

namespace vask::test {

// The example in a section of docs/files.md: its indented lines.
inline std::string DocExample(const std::string& section) {
  std::ifstream page(BRUMBLE_RUNTIME_FOLDER "/../docs/files.md");
  std::string example, line;
  while (std::getline(page, line) && line != "## " + section) {
  }
  while (std::getline(page, line) && !line.starts_with("## ")) {
    example += line.starts_with("    ") ? line.substr(4) + "\n" : "";
  }
  return example;
}

}  // namespace vask::test
