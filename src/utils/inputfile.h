#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace vask {

// Whether the name is that of something that can't be read like a file: reading a pipe may block
// forever, a device may have no end.
inline bool IsEndless(const std::string& fileName) {
  std::error_code error;
  return std::filesystem::is_other(fileName, error);
}

// Opens a file for reading; the stream has failed when that is not possible.
inline std::ifstream OpenInputFile(const std::string& fileName) {
  std::ifstream file;
  if (IsEndless(fileName)) {
    file.setstate(std::ios::failbit);
  } else {
    file.open(fileName, std::ios::binary);
  }
  return file;
}

}  // namespace vask
