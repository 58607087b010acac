#pragma once

#include "gfx/picture/gfxfactory.h"
#include "gfx/picture/pixel.h"
#include "utils/rect.h"

#include <cstdint>
#include <memory>
#include <string>

// The facade over the one installed picture factory, and the process-wide values of the screen.
// Without a factory the makers log a warning and return the null picture.
//
//     const Gfx::ImagePtr picture(Gfx::LoadImage("door.bmp", Gfx::kMagenta));
//     picture->Blit(Gfx::GetScreen(), {0, 0, 10, 20}, {5, 5, 10, 20});
namespace vask::Gfx {

// Magenta, the colour key of every picture that is loaded for sprites and fonts.
inline constexpr std::uint32_t kMagenta = 0xFFFF00FF;

// A transparent buffer, owned by the caller (free with FreeImage).
IPixel* NewBuffer(int width, int height);
// A picture that shares the surface of the given one.
IPixel* NewBuffer(IPixel* image);
// The key is packed with red in the low byte.
IPixel* LoadImage(const std::string& file, std::uint32_t colorKey);
void FreeImage(IPixel* image);

// A buffer in the screen's own format, with a colour key. Used for save-under.
IPixel* NewScreenBuffer(int width, int height, std::uint32_t colorKey);

// Copies pixels as they are, alpha and key colour included: `sourceRect` of one picture to a
// position of another, relative to the image rectangles and clipped to both. Does nothing when
// either is empty or no factory is installed.
void CopyPixels(IPixel* source, const CRect<int>& sourceRect, IPixel* target, int x, int y);

// A rectangle, relative to the image rectangle, outside which nothing of the picture shows: the
// smallest one for a picture with the alpha channel that the factory gives pictures for sprites,
// all of it for any other.
CRect<int> SolidPart(const IPixel& picture);

// The shared picture that draws nothing and is never deleted.
IPixel* NullImage();

// The installed factory, not owned; null when none is.
CGfxFactory* GetFactory();
void SetFactory(CGfxFactory* factory);

// The screen's picture, not owned; the null picture while there is no screen.
IPixel* GetScreen();
void SetScreen(IPixel* screen);

// The screen's rectangle (0, 0, width, height).
CRect<int>& ScreenRect();

// Bits per pixel of the screen: 32 until a video mode is set. Surface flags of new buffers: 0.
int& ScreenBpp();
std::uint32_t& NewSurfaceFlags();

// Smoothing of scaled (0) and rotated (1) pictures.
int& ScaleSmoothing();
int& RotateSmoothing();

struct SImageDeleter {
  void operator()(IPixel* image) const {
    if (!image->IsStatic()) {
      FreeImage(image);
    }
  }
};
// Owns a picture; static ones are never freed.
using ImagePtr = std::unique_ptr<IPixel, SImageDeleter>;

}  // namespace vask::Gfx
