#pragma once

namespace vask::platform {

// From now on the program ends with status 1 when there is no memory for `new`, in whatever part of
// it: a line goes to the standard error and, marked as an error, to the end of the log (a file that
// is there; the name must stay valid), and SDL gives the screen back. Nothing else is done, since
// nobody knows what was half finished. Call it from the main thread.
void EndWithoutMemory(const char* logFile);

}  // namespace vask::platform
