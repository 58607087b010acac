#pragma once

#include <fstream>
#include <ios>
#include <string>

#include "utils/inputfile.h"

namespace vask {

// Opens a file for writing, emptied unless `mode` is std::ios::app; the stream has failed when that
// is not possible.
inline std::ofstream OpenOutputFile(const std::string& fileName,
                                    std::ios::openmode mode = std::ios::trunc) {
  std::ofstream file;
  if (IsEndless(fileName)) {
    file.setstate(std::ios::failbit);
  } else {
    file.open(fileName, mode);
  }
  return file;
}

}  // namespace vask
