#include "platform/displayloss.h"

#include <X11/Xlib.h>
#include <unistd.h>

#include <cstdio>

namespace vask::platform {

namespace {

// No exit(): an exit handler shuts SDL down, which calls the lost display again and, in some of its
// versions, waits for the reply for ever.
int End(Display*) {
  std::fputs("The connection to the display is lost; the program ends.\n", stderr);
  _exit(1);
}

}  // namespace

void EndWithDisplay() { XSetIOErrorHandler(&End); }

}  // namespace vask::platform
