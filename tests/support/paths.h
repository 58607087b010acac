#pragma once

#include <string>

namespace vask::test {

// The full path of a file or folder of the source tree, such as "runtime/data".
std::string SourcePath(const std::string& name);

}  // namespace vask::test
