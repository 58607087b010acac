#pragma once

#include <filesystem>
#include <fstream>
#include <ios>
#include <string>
#include <system_error>

namespace vask {

// Whether the name is that of something that blocks until there is a reader, perhaps forever.
inline bool IsPipe(const std::string& fileName) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(fileName, error);
  return std::filesystem::is_fifo(status) || std::filesystem::is_socket(status);
}

// Opens a file for writing, emptied unless `mode` is std::ios::app; the stream has failed when that
// is not possible.
inline std::ofstream OpenOutputFile(const std::string& fileName,
                                    std::ios::openmode mode = std::ios::trunc) {
  std::ofstream file;
  if (IsPipe(fileName)) {
    file.setstate(std::ios::failbit);
  } else {
    file.open(fileName, mode);
  }
  return file;
}

}  // namespace vask
