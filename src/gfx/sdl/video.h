#pragma once

#include "utils/containers/autolist.h"

#include <SDL.h>

#include <cstdint>
#include <string>

// SDL's video calls that crash, or answer a surface that is gone, while there is no video: here
// they answer "nothing" instead.
namespace vask::sdl {

// Keeps the screen's surface, which is SDL's to free: it does so when it quits, and may with a new
// mode.
class CScreenHolder : public CAutoList<CScreenHolder> {
 public:
  virtual ~CScreenHolder() = default;
  // Called before that. The surface may not be used any more.
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

// How often that was done: with it SDL has forgotten what is held, and will not tell of its
// release.
unsigned GetQuitCount();

// The depth that SDL would use for the mode; 0 when it is not available.
int GetModeDepth(int width, int height, int depth, std::uint32_t flags);

}  // namespace vask::sdl
