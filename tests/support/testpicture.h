#pragma once

#include <SDL.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "gfx/gfx.h"
#include "gfx/screenlayer.h"
#include "gfx/sdl/gfxfactorysdl.h"
#include "gfx/sdl/pixelscreensdl.h"
#include "gfx/sdl/video.h"

namespace vask::test {

// A 32-bit SDL screen with the picture factory installed, for as long as it lives.
class CTestScreen {
 public:
  CTestScreen(int width, int height) {
    static char driver[] = "SDL_VIDEODRIVER=dummy";
    SDL_putenv(driver);
    SDL_Init(SDL_INIT_VIDEO);
    Gfx::SetFactory(&myFactory);
    Resize(width, height);
    Gfx::SetScreen(&myScreen);
  }
  ~CTestScreen() {
    CScreenLayer::DeleteSingleton();
    Gfx::SetScreen(nullptr);
    myScreen.SetSurface(nullptr, false);
    Gfx::SetFactory(nullptr);
    SDL_Quit();
  }
  CTestScreen(const CTestScreen&) = delete;
  CTestScreen& operator=(const CTestScreen&) = delete;

  void Resize(int width, int height) {
    myScreen.Reset(sdl::OpenVideoMode(width, height, 32, SDL_SWSURFACE));
  }

  CPixelScreenSDL& Picture() { return myScreen; }
  std::vector<std::uint32_t> Pixels() const { return PixelsOf(myScreen); }
  // 0xRRGGBB
  unsigned At(int x, int y) const {
    const CColor color = myScreen.GetPixel(x, y);
    return static_cast<unsigned>(color.r << 16 | color.g << 8 | color.b);
  }

  static std::vector<std::uint32_t> PixelsOf(const CPixelSDL& picture) {
    const SDL_Surface* surface = picture.GetSurface();
    const auto width = static_cast<std::size_t>(surface->w);
    std::vector<std::uint32_t> pixels(width * static_cast<std::size_t>(surface->h));
    for (int y = 0; y < surface->h; ++y) {
      std::memcpy(&pixels[width * static_cast<std::size_t>(y)],
                  static_cast<const char*>(surface->pixels) + y * surface->pitch, width * 4);
    }
    return pixels;
  }

 private:
  CGfxFactorySDL myFactory;
  CPixelScreenSDL myScreen;
};

// A picture with an alpha channel, in one colour.
inline IPixel* NewPicture(int width, int height, const CColor& color) {
  IPixel* picture = Gfx::NewBuffer(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      picture->PutPixel(x, y, color);
    }
  }
  return picture;
}

// A sprite with such a picture in a layer.
inline CSpritePtr NewSprite(CSpriteLayer* layer, const CRect<int>& rect, const CColor& color,
                            int z = 100) {
  CSpritePtr sprite(new CSprite);
  sprite->SetImage(NewPicture(rect.w, rect.h, color));
  sprite->SetPosition(rect.x, rect.y);
  sprite->SetZ(z);
  sprite->SetParent(layer);
  return sprite;
}

}  // namespace vask::test
