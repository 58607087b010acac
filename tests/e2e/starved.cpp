// In place of the library's: at each place that asks for memory for the first time, once main has
// set its handler, a copy of the process goes on without any. It has to end in order: one line on
// the standard error, then the screen given back, and status 1. Prints each place where it does
// not, and in the end how many places there were. A place is all the functions that are being
// called there. With STARVE_EACH in the environment each request is a place of its own.

#include <dlfcn.h>
#include <execinfo.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <set>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kExpected = "There is no memory left; the program ends.\nscreen back\n";

using Place = std::array<void*, 100>;  // the functions that are being called; the rest is null

const bool ourTriesEach = std::getenv("STARVE_EACH") != nullptr;
constinit int ourPlaces = 0;
constinit int ourFaults = 0;
constinit bool ourIsBusy = false;     // and stays so in a copy
constinit bool ourIsStarved = false;  // a copy that has no memory

void TryWithoutMemory(const Place& place, int depth) {
  std::FILE* const output = std::tmpfile();
  const pid_t copy = fork();
  if (copy == 0) {
    dup2(fileno(output), STDERR_FILENO);
    alarm(10);  // seconds; the end may wait for ever
    ourIsStarved = true;
    std::get_new_handler()();
    std::_Exit(0);
  }
  int status = 0;
  waitpid(copy, &status, 0);
  std::rewind(output);
  std::string printed(4096, ' ');
  printed.resize(std::fread(printed.data(), 1, printed.size(), output));
  std::fclose(output);
  ++ourPlaces;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != EXIT_FAILURE || printed != kExpected) {
    ++ourFaults;
    std::printf("status %d, printed: %s\n", status, printed.c_str());
    std::fflush(stdout);
    backtrace_symbols_fd(place.data(), depth, STDOUT_FILENO);
  }
}

void OnRequest() {
  // Nothing deletes it: other static objects ask for memory to the very end.
  static auto& known = *new std::set<Place>;
  Place place{};
  const int depth = backtrace(place.data(), static_cast<int>(place.size()));
  if (known.insert(place).second || ourTriesEach) {
    TryWithoutMemory(place, depth);
  }
}

const struct SReport {
  ~SReport() { std::printf("%d places, %d faults\n", ourPlaces, ourFaults); }
} theReport;

}  // namespace

void* operator new(std::size_t size) {
  if (ourIsStarved) {
    std::abort();  // the handler, too, has to do without
  }
  const bool isMainThread = gettid() == getpid();
  if (std::get_new_handler() != nullptr && isMainThread && !ourIsBusy) {
    ourIsBusy = true;
    OnRequest();
    ourIsBusy = false;
  }
  return std::malloc(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

// In place of SDL's. In a copy there is no thread of the sound, for which SDL's would wait.
extern "C" void SDL_Quit() {
  if (ourIsBusy) {
    std::fputs("screen back\n", stderr);
    return;
  }
  reinterpret_cast<void (*)()>(dlsym(RTLD_NEXT, "SDL_Quit"))();
}
