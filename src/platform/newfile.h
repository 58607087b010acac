#pragma once

#include <string>
#include <string_view>

namespace vask::platform {

// A file that did not exist before: nothing is ever overwritten, and a pipe is never waited for.
class CNewFile {
 public:
  explicit CNewFile(const std::string& name);
  // Removes it when none of what should be in it could be written.
  ~CNewFile();
  CNewFile(const CNewFile&) = delete;
  CNewFile& operator=(const CNewFile&) = delete;

  // Appends all of it; nothing is buffered. After a failure nothing more is written.
  void Write(std::string_view bytes);
  // Makes it fail for that reason, one of errno, as what belongs into it can't be told.
  void Fail(int error) { myError = error; }
  // Whether everything has gone well, the making of the file included.
  bool IsGood() const { return myError == 0; }
  // Whether the file could not be made because there is one of that name.
  bool WasThere() const;
  // The reason of the failure, as the system tells it.
  std::string GetError() const;

 private:
  std::string myName;
  int myFile;
  bool myHasBytes = false;
  int myError = 0;  // of errno
};

}  // namespace vask::platform
