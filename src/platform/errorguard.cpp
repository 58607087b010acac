#include "platform/errorguard.h"

#include <csetjmp>

namespace vask::platform {

namespace {

bool ourIsOpening = false;
std::jmp_buf ourWayOut{};
Display* ourDisplay = nullptr;
bool ourConnectionIsLost = false;
XErrorHandler ourOldHandler = nullptr;
XIOErrorHandler ourOldLossHandler = nullptr;

bool IsGuarded(const Display* display) { return ourIsOpening || display == ourDisplay; }

int OnError(Display* display, XErrorEvent* error) {
  return IsGuarded(display) ? 0 : ourOldHandler(display, error);
}

int OnLoss(Display* display) {
  if (!IsGuarded(display)) {
    return ourOldLossHandler(display);
  }
  if (ourIsOpening) {
    // Whoever returns from here ends the program, until the connection is open and told otherwise.
    // What was set up for the connection leaks.
    std::longjmp(ourWayOut, 1);
  }
  ourConnectionIsLost = true;
  return 0;
}

}  // namespace

CErrorGuard::CErrorGuard() {
  ourDisplay = nullptr;
  ourConnectionIsLost = false;
  ourOldHandler = XSetErrorHandler(&OnError);
  ourOldLossHandler = XSetIOErrorHandler(&OnLoss);
}

CErrorGuard::~CErrorGuard() {
  XSetErrorHandler(ourOldHandler);
  XSetIOErrorHandler(ourOldLossHandler);
}

Display* CErrorGuard::Open() {
  ourIsOpening = true;
  Display* display = setjmp(ourWayOut) == 0 ? XOpenDisplay(nullptr) : nullptr;
  ourIsOpening = false;
  ourDisplay = display;
  if (display != nullptr) {
    XSetIOErrorExitHandler(
        display, [](Display*, void*) {}, nullptr);
  }
  return display;
}

bool CErrorGuard::IsConnectionLost() const { return ourConnectionIsLost; }

}  // namespace vask::platform
