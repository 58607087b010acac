#pragma once

#include <X11/Xlib.h>

namespace vask::platform {

// Keeps the errors of one X connection, its loss among them, from ending the program. X has one
// error handler for the whole process, and the usual one exits: while a guard lives, the errors of
// its own connection are only noted, those of others go to the handlers that were installed before.
// One guard at a time.
class CErrorGuard {
 public:
  CErrorGuard();
  // Puts the earlier handlers back.
  ~CErrorGuard();
  CErrorGuard(const CErrorGuard&) = delete;
  CErrorGuard& operator=(const CErrorGuard&) = delete;

  // Opens the guarded connection, which the caller closes; null when there is no display.
  Display* Open();
  bool IsConnectionLost() const;
};

}  // namespace vask::platform
