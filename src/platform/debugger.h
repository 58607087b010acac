#pragma once

namespace vask::platform {

// Stops in the debugger that the program runs under; does nothing without one.
void BreakIntoDebugger();

}  // namespace vask::platform
