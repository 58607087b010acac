// In place of the libraries' functions: one call fails, on order. The number in the environment
// variable FAULT is that of the call, or of a place, where the first call fails; a place is the last
// twelve functions that are being called there. Without it all calls are printed, with both.

#include <SDL_image.h>
#include <SDL_mixer.h>
#include <SDL_rotozoom.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <stdio_ext.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <type_traits>
#include <utility>

namespace {

constexpr std::uint64_t kPlaceBit = 1ULL << 63U;
constexpr int kDepth = 12;

constinit std::atomic<std::uint64_t> ourCalls = 0;
constinit std::atomic<bool> ourHasFailed = false;
constinit thread_local bool ourIsBusy = false;  // counting, which may itself call such a function

void PrintPlace() {
  std::array<void*, 100> calls{};
  backtrace_symbols_fd(calls.data(), backtrace(calls.data(), 100), STDOUT_FILENO);
}

// The same in every run, wherever the libraries are.
std::uint64_t NumberOfPlace() {
  std::array<void*, kDepth> calls{};
  std::uint64_t hash = 14695981039346656037U;
  for (int i = 0, depth = backtrace(calls.data(), kDepth); i < depth; ++i) {
    void* const call = calls[static_cast<std::size_t>(i)];
    dl_find_object module{};
    if (_dl_find_object(call, &module) == 0) {
      hash ^= static_cast<std::uint64_t>(static_cast<char*>(call) -
                                         static_cast<char*>(module.dlfo_map_start));
    }
    hash *= 1099511628211U;
  }
  return hash | kPlaceBit;
}

bool Fails(const char* name) {
  const std::uint64_t call = ++ourCalls;
  const std::uint64_t place = NumberOfPlace();
  const char* const fault = std::getenv("FAULT");
  const std::uint64_t wanted = fault == nullptr ? 0 : std::strtoull(fault, nullptr, 10);
  const bool fails = (wanted == call || wanted == place) && !ourHasFailed.exchange(true);
  if (fault == nullptr || fails) {
    dprintf(STDOUT_FILENO, "\n%s %lu %lu %s\n", fails ? "failed" : "call", call, place, name);
  }
  if (fails) {
    PrintPlace();
    SDL_SetError("%s has failed", name);
    errno = EIO;
  }
  return fails;
}

bool FailsHere(const char* name) {
  const bool isOurs = std::exchange(ourIsBusy, true);
  const bool fails = !isOurs && Fails(name);
  ourIsBusy = isOurs;
  return fails;
}

// Calls the library's function.
template <typename Result, typename... Arguments>
Result Next(const char* name, Arguments... arguments) {
  return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}

// Fails as a function of its kind does, or calls the library's.
template <typename Result, typename... Arguments>
Result Call(const char* name, Arguments... arguments) {
  if (!FailsHere(name)) {
    return Next<Result>(name, arguments...);
  }
  if constexpr (std::is_signed_v<Result>) {
    return -1;
  } else {
    return {};
  }
}

}  // namespace

#define FAILING1(R, name, A) \
  extern "C" R name(A a) { return Call<R, A>(#name, a); }
#define FAILING2(R, name, A, B) \
  extern "C" R name(A a, B b) { return Call<R, A, B>(#name, a, b); }
#define FAILING3(R, name, A, B, C) \
  extern "C" R name(A a, B b, C c) { return Call<R, A, B, C>(#name, a, b, c); }
#define FAILING4(R, name, A, B, C, D) \
  extern "C" R name(A a, B b, C c, D d) { return Call<R, A, B, C, D>(#name, a, b, c, d); }
FAILING1(int, SDL_Init, Uint32)
FAILING1(int, SDL_InitSubSystem, Uint32)
FAILING4(SDL_Surface*, SDL_SetVideoMode, int, int, int, Uint32)
FAILING3(SDL_Surface*, SDL_ConvertSurface, SDL_Surface*, SDL_PixelFormat*, Uint32)
FAILING1(SDL_Surface*, SDL_DisplayFormat, SDL_Surface*)
FAILING1(SDL_Surface*, SDL_DisplayFormatAlpha, SDL_Surface*)
FAILING1(int, SDL_LockSurface, SDL_Surface*)
FAILING4(int, SDL_UpperBlit, SDL_Surface*, SDL_Rect*, SDL_Surface*, SDL_Rect*)
FAILING3(int, SDL_FillRect, SDL_Surface*, SDL_Rect*, Uint32)
FAILING2(SDL_RWops*, SDL_RWFromFile, const char*, const char*)
FAILING1(SDL_Surface*, IMG_Load, const char*)
FAILING1(SDL_Surface*, IMG_LoadGIF_RW, SDL_RWops*)
FAILING4(int, Mix_OpenAudio, int, Uint16, int, int)
FAILING2(Mix_Chunk*, Mix_LoadWAV_RW, SDL_RWops*, int)
FAILING1(Mix_Music*, Mix_LoadMUS, const char*)
FAILING4(int, Mix_PlayChannelTimed, int, Mix_Chunk*, int, int)
FAILING2(int, Mix_PlayMusic, Mix_Music*, int)
FAILING4(SDL_Surface*, rotozoomSurface, SDL_Surface*, double, double, int)
FAILING4(SDL_Surface*, zoomSurface, SDL_Surface*, double, double, int)
FAILING3(int, open, const char*, int, mode_t)
FAILING4(int, openat, int, const char*, int, mode_t)
FAILING2(FILE*, fopen, const char*, const char*)
FAILING2(FILE*, fopen64, const char*, const char*)
FAILING4(size_t, fread, void*, size_t, size_t, FILE*)
FAILING4(size_t, fwrite, const void*, size_t, size_t, FILE*)
FAILING3(ssize_t, read, int, void*, size_t)
FAILING3(ssize_t, write, int, const void*, size_t)
FAILING3(ssize_t, writev, int, const iovec*, int)
FAILING2(int, rename, const char*, const char*)
FAILING1(int, fsync, int)
FAILING3(int, socket, int, int, int)
FAILING3(int, connect, int, const sockaddr*, socklen_t)
FAILING4(ssize_t, send, int, const void*, size_t, int)
FAILING4(ssize_t, recv, int, void*, size_t, int)
// Closing fails where something was written, and closes all the same.
extern "C" int fclose(FILE* file) {
  const bool fails = __fwriting(file) != 0 && FailsHere("fclose");
  return Next<int>("fclose", file) == 0 && !fails ? 0 : EOF;
}
extern "C" int close(int file) {
  const bool fails = Next<ssize_t>("write", file, "", size_t{0}) == 0 && FailsHere("close");
  return Next<int>("close", file) == 0 && !fails ? 0 : -1;
}
extern "C" SDL_Surface* SDL_CreateRGBSurface(Uint32 flags, int width, int height, int depth,
                                             Uint32 red, Uint32 green, Uint32 blue, Uint32 alpha) {
  return Call<SDL_Surface*>("SDL_CreateRGBSurface", flags, width, height, depth, red, green, blue,
                            alpha);
}
extern "C" SDL_Surface* SDL_CreateRGBSurfaceFrom(void* pixels, int width, int height, int depth,
                                                 int pitch, Uint32 red, Uint32 green, Uint32 blue,
                                                 Uint32 alpha) {
  return Call<SDL_Surface*>("SDL_CreateRGBSurfaceFrom", pixels, width, height, depth, pitch, red,
                            green, blue, alpha);
}
