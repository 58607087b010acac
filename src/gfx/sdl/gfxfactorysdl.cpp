#include "gfx/sdl/gfxfactorysdl.h"

#include "gfx/picture/gfx.h"
#include "gfx/sdl/gifreader.h"
#include "gfx/sdl/pixelsdl.h"
#include "gfx/sdl/sdltextures.h"
#include "gfx/sdl/video.h"
#include "utils/inputfile.h"
#include "utils/log/log.h"

#include <SDL_image.h>

#include <memory>
#include <utility>

namespace vask {

namespace {

sdl::SurfacePtr Load(const std::string& file) {
  if (IsEndless(file)) {
    return nullptr;
  }
  const sdl::SurfacePtr loaded =
      sdl::IsGifFile(file) ? sdl::LoadGifFile(file) : sdl::SurfacePtr(IMG_Load(file.c_str()));
  if (loaded == nullptr || !sdl::IsValidSize(loaded->w, loaded->h)) {
    return nullptr;
  }
  return loaded->format->alpha != 0 ? sdl::ToScreenAlphaFormat(loaded.get())
                                    : sdl::ToScreenFormat(loaded.get());
}

IPixel* NewPicture(sdl::SurfacePtr surface, bool usesAlphaBlit) {
  if (surface == nullptr) {
    return Gfx::NullImage();
  }
  auto* picture = new CPixelSDL(surface.release());
  picture->SetParam(IPixel::kAlphaBlit, usesAlphaBlit);
  return picture;
}

}  // namespace

IPixel* CGfxFactorySDL::NewBuffer(int width, int height, const CColor& colorKey) {
  sdl::SurfacePtr surface = sdl::NewSurface(width, height, ScreenFormat(), Gfx::NewSurfaceFlags());
  if (surface == nullptr) {
    return Gfx::NullImage();
  }
  if (const SDL_Surface* screen = sdl::GetVideoSurface()) {
    if (const SDL_Palette* palette = screen->format->palette) {
      SDL_SetColors(surface.get(), palette->colors, 0, palette->ncolors);
    }
  }
  return new CPixelSDL(surface.release(), colorKey, {});
}

IPixel* CGfxFactorySDL::NewBuffer(int width, int height) {
  return NewPicture(sdl::NewAlphaSurface(width, height, Gfx::NewSurfaceFlags()), true);
}

IPixel* CGfxFactorySDL::LoadImage(const std::string& file, const CColor& colorKey) {
  CSDLTextures& textures = *CSDLTextures::GetSingletonPtr();
  SDL_Surface* surface = nullptr;
  if (textures.Exists(file)) {
    surface = textures.GetPointer(file);
  } else if (sdl::SurfacePtr loaded = Load(file)) {
    surface = loaded.release();
    textures.AddNew(file, surface, false);
  } else {
    Log().Warning() << "The picture " << file << " can't be loaded: " << SDL_GetError() << "\n";
  }
  return surface != nullptr ? new CPixelSDL(surface, colorKey, file) : Gfx::NullImage();
}

IPixel* CGfxFactorySDL::NewBuffer(IPixel* image) {
  const auto* original = dynamic_cast<const CPixelSDL*>(image);
  if (original == nullptr || original->IsEmpty()) {
    return Gfx::NullImage();
  }
  CSDLTextures& textures = *CSDLTextures::GetSingletonPtr();
  SDL_Surface* surface = original->GetSurface();
  if (!textures.IsShared(surface) || !textures.AddReference(surface)) {
    return NewPicture(sdl::CopyPixels(surface, sdl::Bounds(*surface)), original->UsesAlphaBlit());
  }
  auto sharing = std::make_unique<CPixelSDL>(surface);
  sharing->SetFileName(original->GetFileName());
  return sharing.release();
}

void CGfxFactorySDL::FreeImage(IPixel* image) {
  if (image != nullptr && !image->IsStatic()) {
    delete image;
  }
}

void CGfxFactorySDL::CopyPixels(IPixel* source, const CRect<int>& sourceRect, IPixel* target, int x,
                                int y) {
  const auto* from = dynamic_cast<const CPixelSDL*>(source);
  auto* to = dynamic_cast<CPixelSDL*>(target);
  if (from != nullptr && to != nullptr) {
    from->CopyPixels(sourceRect, *to, x, y);
  }
}

CRect<int> CGfxFactorySDL::SolidPart(const IPixel& picture) {
  const auto* image = dynamic_cast<const CPixelSDL*>(&picture);
  return image != nullptr ? image->SolidPart() : CGfxFactory::SolidPart(picture);
}

const sdl::SPixelFormat& CGfxFactorySDL::ScreenFormat() {
  if (const SDL_Surface* screen = sdl::GetVideoSurface()) {
    myFormat = sdl::FormatOf(*screen);
  } else if (myFormat.bits < 0) {
    myFormat = sdl::AlphaFormat();
    myFormat.alphaMask = 0;
  }
  return myFormat;
}

}  // namespace vask
