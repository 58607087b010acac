#pragma once

namespace vask::platform {

// What the program asks of its own process.

// The number of this process in the system.
int ProcessNumber();

// Gives up the rest of this thread's time slice; returns at once when nobody else wants it.
void YieldTimeSlice();

// Sleeps for about that many milliseconds; 0 returns at once.
void SleepMilliseconds(unsigned milliseconds);

// Ignores SIGPIPE: a write to a pipe whose reader has gone fails from now on, as other writes do.
// By default it ends the program without a word.
void SurviveBrokenPipes();

// Stops in the debugger that the program runs under; does nothing without one.
void BreakIntoDebugger();

}  // namespace vask::platform
