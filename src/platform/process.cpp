#include "platform/process.h"

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <thread>

namespace vask::platform {

namespace {

bool IsTraced() {
  std::ifstream status("/proc/self/status");
  std::string field;
  while (status >> field) {
    if (field == "TracerPid:") {
      long tracer = 0;
      return status >> tracer && tracer != 0;
    }
  }
  return false;
}

}  // namespace

int ProcessNumber() { return static_cast<int>(getpid()); }

void YieldTimeSlice() { std::this_thread::yield(); }

void SleepMilliseconds(unsigned milliseconds) {
  if (milliseconds > 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }
}

void SurviveBrokenPipes() { std::signal(SIGPIPE, SIG_IGN); }

void BreakIntoDebugger() {
  // Without a debugger the signal would end the program.
  if (IsTraced()) {
    std::raise(SIGTRAP);
  }
}

}  // namespace vask::platform
