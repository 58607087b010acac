#include "platform/memoryloss.h"

#include <SDL.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <new>
#include <string_view>

namespace vask::platform {

namespace {

// Written as it stands, since nothing can be put together any more.
constexpr std::string_view kLogLine = "<!> There is no memory left; the program ends.\n";
constexpr std::size_t kMarkLength = 4;

constinit const char* ourLogFile = nullptr;
pthread_t ourMainThread;

void Write(int file, std::string_view text) {
  // Nothing is left to do where this fails.
  [[maybe_unused]] const ssize_t written = write(file, text.data(), text.size());
}

void WriteToLog() {
  const int file = open(ourLogFile, O_WRONLY | O_APPEND | O_NONBLOCK | O_CLOEXEC);
  struct stat state {};
  if (file >= 0 && fstat(file, &state) == 0 && S_ISREG(state.st_mode)) {
    Write(file, kLogLine);
  }
}

void EndAtOnce() { std::_Exit(EXIT_FAILURE); }

void End() {
  std::set_new_handler(&EndAtOnce);  // if what follows wants memory, too
  Write(STDERR_FILENO, kLogLine.substr(kMarkLength));
  WriteToLog();
  // On another thread, such as that of the sound, SDL would wait for that thread for ever.
  if (pthread_equal(pthread_self(), ourMainThread) != 0) {
    SDL_Quit();
  }
  EndAtOnce();
}

}  // namespace

void EndWithoutMemory(const char* logFile) {
  ourLogFile = logFile;
  ourMainThread = pthread_self();
  std::set_new_handler(&End);
}

}  // namespace vask::platform
