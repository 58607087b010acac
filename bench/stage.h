#pragma once

#include "gfx/sdl/gfxfactorysdl.h"
#include "gfx/sdl/pixelscreensdl.h"
#include "gfx/sprite/screenlayer.h"

#include <SDL.h>

#include <cstdlib>
#include <filesystem>

namespace vask {

constexpr int kWidth = 800;
constexpr int kHeight = 600;

// The screen of a program that works in a folder, without a window.
class CStage {
 public:
  explicit CStage(const std::filesystem::path& folder) {
    std::filesystem::current_path(folder);
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    SDL_Init(SDL_INIT_VIDEO);
    Gfx::SetFactory(&myFactory);
    myScreen.Reset(SDL_SetVideoMode(kWidth, kHeight, 32, SDL_SWSURFACE));
    Gfx::SetScreen(&myScreen);
  }
  ~CStage() {
    CScreenLayer::DeleteSingleton();
    Gfx::SetScreen(nullptr);
    myScreen.SetSurface(nullptr, false);
    Gfx::SetFactory(nullptr);
    SDL_Quit();
  }
  CStage(const CStage&) = delete;
  CStage& operator=(const CStage&) = delete;

  SDL_Surface* Screen() const { return myScreen.GetSurface(); }

 private:
  CGfxFactorySDL myFactory;
  CPixelScreenSDL myScreen;
};

}  // namespace vask
