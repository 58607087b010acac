#include "platform/errorguard.h"

#include <csetjmp>

namespace vask::platform {

namespace {

bool theIsOpening = false;
std::jmp_buf theWayOut{};
Display* theDisplay = nullptr;
bool theConnectionIsLost = false;
XErrorHandler theOldHandler = nullptr;
XIOErrorHandler theOldLossHandler = nullptr;

bool IsGuarded(const Display* display) { return theIsOpening || display == theDisplay; }

int OnError(Display* display, XErrorEvent* error) {
  return IsGuarded(display) ? 0 : theOldHandler(display, error);
}

int OnLoss(Display* display) {
  if (!IsGuarded(display)) {
    return theOldLossHandler(display);
  }
  if (theIsOpening) {
    // Whoever returns from here ends the program, until the connection is open and told otherwise.
    // What was set up for the connection leaks.
    std::longjmp(theWayOut, 1);
  }
  theConnectionIsLost = true;
  return 0;
}

}  // namespace

CErrorGuard::CErrorGuard() {
  theDisplay = nullptr;
  theConnectionIsLost = false;
  theOldHandler = XSetErrorHandler(&OnError);
  theOldLossHandler = XSetIOErrorHandler(&OnLoss);
}

CErrorGuard::~CErrorGuard() {
  XSetErrorHandler(theOldHandler);
  XSetIOErrorHandler(theOldLossHandler);
}

Display* CErrorGuard::Open() {
  theIsOpening = true;
  Display* display = setjmp(theWayOut) == 0 ? XOpenDisplay(nullptr) : nullptr;
  theIsOpening = false;
  theDisplay = display;
  if (display != nullptr) {
    XSetIOErrorExitHandler(
        display, [](Display*, void*) {}, nullptr);
  }
  return display;
}

bool CErrorGuard::IsConnectionLost() const { return theConnectionIsLost; }

}  // namespace vask::platform
