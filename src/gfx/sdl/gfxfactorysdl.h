#pragma once

#include "gfx/picture/gfxfactory.h"
#include "gfx/sdl/surface.h"

namespace vask {

// Makes pictures over SDL and SDL_image.
class CGfxFactorySDL : public CGfxFactory {
 public:
  IPixel* NewBuffer(int width, int height, const CColor& colorKey) override;
  IPixel* NewBuffer(int width, int height) override;
  IPixel* LoadImage(const std::string& file, const CColor& colorKey) override;
  // Shares the surface when it comes from a file, and copies it otherwise.
  IPixel* NewBuffer(IPixel* image) override;
  IPixel* Reserved() override { return nullptr; }
  void FreeImage(IPixel* image) override;
  void CopyPixels(IPixel* source, const CRect<int>& sourceRect, IPixel* target, int x,
                  int y) override;
  CRect<int> SolidPart(const IPixel& picture) override;

 private:
  const sdl::SPixelFormat& ScreenFormat();

  sdl::SPixelFormat myFormat;  // the screen's, last seen; -1 bits before
};

}  // namespace vask
