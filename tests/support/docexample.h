#pragma once

#include "support/files.h"

namespace vask::test {

// The example in a section of a page of docs/: its indented lines.
inline std::string DocExample(const std::string& section, const std::string& name = "files.md") {
  std::ifstream page(SourcePath("docs/" + name));
  std::string example, line;
  while (std::getline(page, line) && line != "## " + section) {
  }
  while (std::getline(page, line) && !line.starts_with("## ")) {
    example += line.starts_with("    ") ? line.substr(4) + "\n" : "";
  }
  return example;
}

}  // namespace vask::test
