#include "gfx/sdl/video.h"

#include <array>

namespace vask::sdl {

namespace {

// SDL goes on returning the old surface after a mode that failed.
constinit bool ourModeFailed = false;

constinit unsigned ourQuitCount = 0;

// SDL keeps the bytes of a row in 16 bits; a wider 32-bit screen would overrun its own memory.
constexpr int kMaxScreenSide = 16383;

// Some versions of SDL 1.2 over SDL 2 (seen in 1.2.78, not up to 1.2.68) go on showing a picture of
// the first mode's size, and write past its end when the screen has become larger.
bool KeepsFirstSize() { return SDL_Linked_Version()->patch > 68; }

void TakeScreenFromHolders() {
  if (CScreenHolder::List* holders = CScreenHolder::PeekList()) {
    for (CScreenHolder* holder : holders->Items()) {
      holder->GiveUpScreen();
    }
  }
}

bool IsOtherSize(int width, int height) {
  const SDL_Surface* screen = SDL_GetVideoSurface();
  return screen != nullptr && (screen->w != width || screen->h != height);
}

}  // namespace

bool HasVideo() { return SDL_WasInit(SDL_INIT_VIDEO) != 0; }

std::string GetDriverName() {
  std::array<char, 256> name{};
  SDL_VideoDriverName(name.data(), static_cast<int>(name.size()));
  return name.data();
}

SDL_Surface* GetVideoSurface() {
  return HasVideo() && !ourModeFailed ? SDL_GetVideoSurface() : nullptr;
}

SDL_Surface* OpenVideoMode(int width, int height, int depth, std::uint32_t flags) {
  TakeScreenFromHolders();
  SDL_Surface* screen = nullptr;
  if (!HasVideo()) {
    // SDL_SetVideoMode would start whatever driver it finds.
    SDL_SetError("SDL's video is not running");
  } else if (width > kMaxScreenSide || height > kMaxScreenSide) {
    SDL_SetError("A screen of %d by %d is too large", width, height);
  } else {
    if (KeepsFirstSize() && IsOtherSize(width, height)) {
      // Another frame takes a new window, with all that belongs to it.
      SDL_SetVideoMode(width, height, depth, flags ^ SDL_NOFRAME);
    }
    screen = SDL_SetVideoMode(width, height, depth, flags);
  }
  ourModeFailed = screen == nullptr;
  return screen;
}

void Quit() {
  TakeScreenFromHolders();
  SDL_Quit();
  ++ourQuitCount;
}

unsigned GetQuitCount() { return ourQuitCount; }

int GetModeDepth(int width, int height, int depth, std::uint32_t flags) {
  return HasVideo() ? SDL_VideoModeOK(width, height, depth, flags) : 0;
}

}  // namespace vask::sdl
