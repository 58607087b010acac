// In place of the libraries' functions: one call fails, on order. The number in the environment
// variable FAULT is that of the call, or of a place, where the first call fails; a place is the
// last twelve functions that are being called there. Without it all calls are printed, with both.

#include <SDL_image.h>
#include <SDL_mixer.h>
#include <SDL_rotozoom.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <netdb.h>
#include <stdio_ext.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <type_traits>
#include <utility>

namespace {

constexpr std::uint64_t kPlaceBit = 1ULL << 63U;
constexpr int kDepth = 12;

constinit std::atomic<std::uint64_t> ourCalls = 0;
constinit std::atomic<bool> ourHasFailed = false;
constinit thread_local bool ourIsBusy = false;  // counting, which may itself call such a function

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
  if (std::exchange(ourIsBusy, true)) {
    return false;
  }
  const std::uint64_t call = ++ourCalls;
  const std::uint64_t place = NumberOfPlace();
  const char* const fault = std::getenv("FAULT");
  const std::uint64_t wanted = fault == nullptr ? 0 : std::strtoull(fault, nullptr, 10);
  const bool fails = (wanted == call || wanted == place) && !ourHasFailed.exchange(true);
  if (fault == nullptr || fails) {
    dprintf(STDOUT_FILENO, "\n%s %lu %lu %s\n", fails ? "failed" : "call", call, place, name);
  }
  if (fails) {
    std::array<void*, 100> calls{};
    backtrace_symbols_fd(calls.data(), backtrace(calls.data(), 100), STDOUT_FILENO);
    SDL_SetError("%s has failed", name);
    errno = EIO;
  }
  ourIsBusy = false;
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
  if (!Fails(name)) {
    return Next<Result>(name, arguments...);
  }
  if constexpr (std::is_signed_v<Result>) {
    return -1;
  } else {
    return {};
  }
}

}  // namespace

// The function of those parameters, which are named again for the call.
#define FAILING(R, name, parameters, ...) \
  extern "C" R name parameters { return Call<R>(#name __VA_OPT__(, ) __VA_ARGS__); }
FAILING(int, SDL_Init, (Uint32 a), a)
FAILING(int, SDL_InitSubSystem, (Uint32 a), a)
FAILING(SDL_Surface*, SDL_SetVideoMode, (int a, int b, int c, Uint32 d), a, b, c, d)
FAILING(SDL_Surface*, SDL_ConvertSurface, (SDL_Surface * a, SDL_PixelFormat* b, Uint32 c), a, b, c)
FAILING(SDL_Surface*, SDL_DisplayFormatAlpha, (SDL_Surface * a), a)
FAILING(int, SDL_LockSurface, (SDL_Surface * a), a)
FAILING(int, SDL_Flip, (SDL_Surface * a), a)
FAILING(SDL_RWops*, SDL_RWFromConstMem, (const void* a, int b), a, b)
FAILING(int, SDL_FillRect, (SDL_Surface * a, SDL_Rect* b, Uint32 c), a, b, c)
FAILING(SDL_Cursor*, SDL_CreateCursor, (Uint8 * a, Uint8* b, int c, int d, int e, int f), a, b, c,
        d, e, f)
FAILING(int, SDL_BuildAudioCVT,
        (SDL_AudioCVT * a, Uint16 b, Uint8 c, int d, Uint16 e, Uint8 f, int g), a, b, c, d, e, f, g)
FAILING(int, SDL_OpenAudio, (SDL_AudioSpec * a, SDL_AudioSpec* b), a, b)
FAILING(int, SDL_ConvertAudio, (SDL_AudioCVT * a), a)
FAILING(SDL_mutex*, SDL_CreateMutex, ())
FAILING(SDL_RWops*, SDL_AllocRW, ())
FAILING(SDL_Rect**, SDL_ListModes, (SDL_PixelFormat * a, Uint32 b), a, b)
FAILING(SDL_RWops*, SDL_RWFromFile, (const char* a, const char* b), a, b)
FAILING(SDL_Surface*, IMG_Load, (const char* a), a)
FAILING(SDL_Surface*, IMG_LoadGIF_RW, (SDL_RWops * a), a)
FAILING(int, Mix_OpenAudio, (int a, Uint16 b, int c, int d), a, b, c, d)
FAILING(Mix_Music*, Mix_LoadMUS, (const char* a), a)
FAILING(int, Mix_PlayChannelTimed, (int a, Mix_Chunk* b, int c, int d), a, b, c, d)
FAILING(int, Mix_FadeInMusicPos, (Mix_Music * a, int b, int c, double d), a, b, c, d)
FAILING(SDL_Surface*, rotozoomSurface, (SDL_Surface * a, double b, double c, int d), a, b, c, d)
FAILING(SDL_Surface*, zoomSurface, (SDL_Surface * a, double b, double c, int d), a, b, c, d)
FAILING(int, open, (const char* a, int b, mode_t c), a, b, c)
FAILING(int, openat, (int a, const char* b, int c, mode_t d), a, b, c, d)
FAILING(FILE*, fopen, (const char* a, const char* b), a, b)
FAILING(FILE*, fopen64, (const char* a, const char* b), a, b)
FAILING(size_t, fread, (void* a, size_t b, size_t c, FILE* d), a, b, c, d)
FAILING(size_t, fwrite, (const void* a, size_t b, size_t c, FILE* d), a, b, c, d)
FAILING(ssize_t, read, (int a, void* b, size_t c), a, b, c)
FAILING(ssize_t, write, (int a, const void* b, size_t c), a, b, c)
FAILING(int, rename, (const char* a, const char* b), a, b)
FAILING(int, mkdir, (const char* a, mode_t b), a, b)
FAILING(int, compress2, (Bytef * a, uLongf* b, const Bytef* c, uLong d, int e), a, b, c, d, e)
FAILING(int, uncompress2, (Bytef * a, uLongf* b, const Bytef* c, uLong* d), a, b, c, d)
FAILING(int, flock, (int a, int b), a, b)
FAILING(int, poll, (struct pollfd * a, unsigned long b, int c), a, b, c)
FAILING(int, getaddrinfo, (const char* a, const char* b, const addrinfo* c, addrinfo** d), a, b, c,
        d)
FAILING(int, socket, (int a, int b, int c), a, b, c)
FAILING(int, connect, (int a, const sockaddr* b, socklen_t c), a, b, c)
FAILING(int, getsockopt, (int a, int b, int c, void* d, socklen_t* e), a, b, c, d, e)
FAILING(ssize_t, send, (int a, const void* b, size_t c, int d), a, b, c, d)
FAILING(ssize_t, recv, (int a, void* b, size_t c, int d), a, b, c, d)
FAILING(SDL_Surface*, SDL_CreateRGBSurface,
        (Uint32 a, int b, int c, int d, Uint32 e, Uint32 f, Uint32 g, Uint32 h), a, b, c, d, e, f,
        g, h)
extern "C" Mix_Chunk* Mix_LoadWAV_RW(SDL_RWops* source, int closes) {
  if (source != nullptr && Fails("Mix_LoadWAV_RW")) {
    SDL_RWseek(source, 0, RW_SEEK_END);  // where the library finds nothing, and closes it
  }
  return Next<Mix_Chunk*>("Mix_LoadWAV_RW", source, closes);
}
// Closing fails where something was written, and closes all the same.
extern "C" int fclose(FILE* file) {
  const bool fails = __fwriting(file) != 0 && Fails("fclose");
  return Next<int>("fclose", file) == 0 && !fails ? 0 : EOF;
}
extern "C" int close(int file) {
  const bool fails = Next<ssize_t>("write", file, "", size_t{0}) == 0 && Fails("close");
  return Next<int>("close", file) == 0 && !fails ? 0 : -1;
}
