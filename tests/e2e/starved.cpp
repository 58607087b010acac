// In place of the library's: at each place that asks for memory for the first time, once main has
// set its handler, a copy of the process goes on without any. It has to end in order: one line on
// the standard error, then the screen given back, and status 1. Prints each place where it does
// not, and in the end how many places there were. A place is all the functions that are being
// called there.

#include <dlfcn.h>
#include <execinfo.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string_view>

namespace {

constexpr std::string_view kExpected = "There is no memory left; the program ends.\nscreen back\n";
constexpr std::size_t kMostPlaces = 1U << 17U;

struct SPlace {
  std::array<void*, 100> calls;
  int depth;
};

constinit std::array<std::uint64_t, kMostPlaces>
    ourKnown{};  // hashes; no container, which would ask for memory
constinit int ourPlaces = 0;
constinit int ourFaults = 0;
constinit bool ourIsCopy = false;
constinit bool ourIsBusy = false;

bool IsNew(const SPlace& place) {
  std::uint64_t hash = 14695981039346656037U;
  for (int i = 0; i < place.depth; ++i) {
    hash = (hash ^ reinterpret_cast<std::uintptr_t>(place.calls[i])) * 1099511628211U;
  }
  std::size_t at = hash % kMostPlaces;
  while (ourKnown[at] != 0 && ourKnown[at] != hash) {
    at = (at + 1) % kMostPlaces;
  }
  const bool isNew = ourKnown[at] == 0;
  ourKnown[at] = hash;
  return isNew;
}

[[noreturn]] void Starve(int output) {
  ourIsCopy = true;
  dup2(output, STDERR_FILENO);
  alarm(10);  // seconds; the end may wait for ever
  std::get_new_handler()();
  std::_Exit(0);
}

void TryWithoutMemory(const SPlace& place) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) {
    return;
  }
  const pid_t copy = fork();
  if (copy == 0) {
    Starve(ends[1]);
  }
  close(ends[1]);
  std::array<char, 4096> printed{};
  std::size_t size = 0;
  while (const ssize_t more = read(ends[0], printed.data() + size, printed.size() - size)) {
    size += static_cast<std::size_t>(more);
  }
  close(ends[0]);
  int status = 0;
  waitpid(copy, &status, 0);
  const bool isInOrder = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_FAILURE;
  ++ourPlaces;
  if (!isInOrder || std::string_view(printed.data(), size) != kExpected) {
    ++ourFaults;
    std::printf("status %d, printed: %.*s\n", status, static_cast<int>(size), printed.data());
    std::fflush(stdout);
    backtrace_symbols_fd(place.calls.data(), place.depth, STDOUT_FILENO);
  }
}

void OnRequest() {
  SPlace place{};
  place.depth = backtrace(place.calls.data(), static_cast<int>(place.calls.size()));
  if (IsNew(place)) {
    TryWithoutMemory(place);
  }
}

const struct SReport {
  ~SReport() { std::printf("%d places, %d faults\n", ourPlaces, ourFaults); }
} theReport;

}  // namespace

void* operator new(std::size_t size) {
  const bool isMainThread = gettid() == getpid();
  if (std::get_new_handler() != nullptr && isMainThread && !ourIsBusy && !ourIsCopy) {
    ourIsBusy = true;
    OnRequest();
    ourIsBusy = false;
  }
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    std::abort();
  }
  return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

// In place of SDL's. In a copy there is no thread of the sound, for which SDL's would wait.
extern "C" void SDL_Quit() {
  if (ourIsCopy) {
    std::fputs("screen back\n", stderr);
    return;
  }
  reinterpret_cast<void (*)()>(dlsym(RTLD_NEXT, "SDL_Quit"))();
}
