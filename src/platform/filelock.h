#pragma once

#include <string>

namespace vask::platform {

// Keeps other processes, and other objects of this one, from holding the same lock while it lives.
// The file only carries the lock: it is made when it is missing, and stays.
class CFileLock {
 public:
  // Tries for at most that many milliseconds.
  CFileLock(const std::string& fileName, unsigned patienceMs);
  ~CFileLock();
  CFileLock(const CFileLock&) = delete;
  CFileLock& operator=(const CFileLock&) = delete;

  // False when somebody else held it for too long, or the file can't be opened.
  bool IsHeld() const { return myIsHeld; }

 private:
  int myFile;
  bool myIsHeld = false;
};

}  // namespace vask::platform
