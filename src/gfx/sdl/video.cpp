#include "gfx/sdl/video.h"

namespace vask::sdl {

namespace {

// SDL keeps answering the old surface after a mode that failed.
constinit bool ourModeFailed = false;

// SDL keeps the bytes of a row in 16 bits; a wider 32-bit screen would overrun its own memory.
constexpr int kMaxScreenSide = 16383;

}  // namespace

bool HasVideo() { return SDL_WasInit(SDL_INIT_VIDEO) != 0; }

SDL_Surface* GetVideoSurface() {
  return HasVideo() && !ourModeFailed ? SDL_GetVideoSurface() : nullptr;
}

SDL_Surface* OpenVideoMode(int width, int height, int depth, std::uint32_t flags) {
  SDL_Surface* screen = nullptr;
  if (!HasVideo()) {
    // SDL_SetVideoMode would start whatever driver it finds.
    SDL_SetError("SDL's video is not running");
  } else if (width > kMaxScreenSide || height > kMaxScreenSide) {
    SDL_SetError("A screen of %d by %d is too large", width, height);
  } else {
    screen = SDL_SetVideoMode(width, height, depth, flags);
  }
  ourModeFailed = screen == nullptr;
  return screen;
}

int GetModeDepth(int width, int height, int depth, std::uint32_t flags) {
  return HasVideo() ? SDL_VideoModeOK(width, height, depth, flags) : 0;
}

}  // namespace vask::sdl
