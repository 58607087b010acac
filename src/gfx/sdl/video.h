#pragma once

#include "utils/containers/autolist.h"

#include <SDL.h>

#include <cstdint>
#include <string>

// SDL's video calls that crash without video, or return a surface that is gone. These return
// "nothing" instead.
namespace vask::sdl {

// Base of what keeps a pointer to the screen's surface. SDL owns that surface: it frees it when it
// quits, and may free it when a mode is set.
class CScreenHolder : public CAutoList<CScreenHolder> {
 public:
  virtual ~CScreenHolder() = default;
  // Called before SDL may free the surface: it must not be used any more.
  virtual void GiveUpScreen() = 0;
};

// Whether SDL's video subsystem is up.
bool HasVideo();

// The name of SDL's video driver, such as "x11"; empty without video.
std::string GetDriverName();

// The screen's surface; null without video and after a mode that could not be set.
SDL_Surface* GetVideoSurface();

// Sets the video mode; null, with SDL's error text, when that fails.
SDL_Surface* OpenVideoMode(int width, int height, int depth, std::uint32_t flags);

// Shuts SDL down.
void Quit();

// How often Quit was called. After it SDL reports no release of keys and buttons that were held.
unsigned GetQuitCount();

// The depth that SDL would use for the mode; 0 when it is not available.
int GetModeDepth(int width, int height, int depth, std::uint32_t flags);

}  // namespace vask::sdl
