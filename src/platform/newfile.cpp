#include "platform/newfile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace vask::platform {
namespace {

constexpr mode_t kReadableByAll = 0644;

}  // namespace

CNewFile::CNewFile(const std::string& name)
    : myName(name),
      myFile(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kReadableByAll)),
      myError(myFile < 0 ? errno : 0) {}

CNewFile::~CNewFile() {
  if (myFile < 0) {
    return;
  }
  close(myFile);
  if (!IsGood() && !myHasBytes) {
    unlink(myName.c_str());
  }
}

void CNewFile::Write(std::string_view bytes) {
  while (IsGood() && !bytes.empty()) {
    const ssize_t written = write(myFile, bytes.data(), bytes.size());
    if (written > 0) {
      myHasBytes = true;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0 || errno != EINTR) {
      myError = written == 0 ? ENOSPC : errno;
    }
  }
}

bool CNewFile::WasThere() const { return myFile < 0 && myError == EEXIST; }

std::string CNewFile::GetError() const { return std::generic_category().message(myError); }

}  // namespace vask::platform
