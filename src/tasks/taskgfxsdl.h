#pragma once

#include "tasks/taskgfx.h"

#include <SDL.h>

#include <memory>

namespace vask {

class CGfxFactorySDL;
class CPixelScreenSDL;

// The graphics task over SDL (task type "gfx"): installs the picture factory and the screen
// picture, and draws and shows a frame at most once every 16 milliseconds of real time. The kernel
// rests no longer than until the next one.
class CTaskGfxSDL : public CTaskGfx {
 public:
  CTaskGfxSDL();
  ~CTaskGfxSDL() override;

  using CTaskGfx::Start;
  bool Start() override;
  void Update() override;
  void Exit() override;

  // Takes the new screen surface and requests a full redraw: setting a mode clears the screen, even
  // at the same size.
  void OnResize(int width, int height);

 private:
  void DrawFrame();
  bool IsScreenStale() const;
  void FollowScreenSize();
  void Shutdown();

  SDL_Surface* myVideoSurface = nullptr;
  std::unique_ptr<CGfxFactorySDL> myFactory;
  std::unique_ptr<CPixelScreenSDL> myScreen;
  CTimer myFrameTimer;
  [[maybe_unused]] int myFrameCount = 60;  // a setting that the pacing does not use
  unsigned myFrameInterval = 16;           // milliseconds
  unsigned myLastFrame = 0;
};

}  // namespace vask
