#include "gfx/sdl/screenrelease.h"

#include "gfx/sdl/video.h"

namespace vask {

CScreenRelease::CScreenRelease() {
  SDL_Surface* screen = sdl::GetVideoSurface();
  if (screen == nullptr) {
    return;
  }
  // First: in full screen the compatibility library does not let go of the input.
  myFilledScreen = (screen->flags & SDL_FULLSCREEN) != 0 && SDL_WM_ToggleFullScreen(screen) != 0;
  myGrabbed = SDL_WM_GrabInput(SDL_GRAB_QUERY) == SDL_GRAB_ON;
  if (myGrabbed) {
    SDL_WM_GrabInput(SDL_GRAB_OFF);
  }
}

CScreenRelease::~CScreenRelease() {
  SDL_Surface* screen = sdl::GetVideoSurface();
  if (screen == nullptr) {
    return;
  }
  if (myFilledScreen) {
    SDL_WM_ToggleFullScreen(screen);
  }
  if (myGrabbed) {
    SDL_WM_GrabInput(SDL_GRAB_ON);
  }
}

}  // namespace vask
