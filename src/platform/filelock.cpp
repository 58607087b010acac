#include "platform/filelock.h"

#include "platform/process.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vask::platform {
namespace {

constexpr mode_t kReadableByAll = 0644;
constexpr unsigned kPauseMs = 10;  // between two tries

}  // namespace

// Not blocking on open: the name may be that of a pipe.
CFileLock::CFileLock(const std::string& fileName, unsigned patienceMs)
    : myFile(open(fileName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, kReadableByAll)) {
  unsigned waited = 0;
  while (myFile >= 0 && !(myIsHeld = flock(myFile, LOCK_EX | LOCK_NB) == 0) &&
         waited < patienceMs) {
    SleepMilliseconds(kPauseMs);
    waited += kPauseMs;
  }
}

CFileLock::~CFileLock() {
  if (myFile >= 0) {
    close(myFile);
  }
}

}  // namespace vask::platform
