#include "gfx/picture/gfx.h"

#include "gfx/picture/pixelnull.h"
#include "utils/log/log.h"

namespace vask::Gfx {

namespace {

constinit CGfxFactory* ourFactory = nullptr;
constinit IPixel* ourScreen = nullptr;

constexpr char kCannotCreate[] = "no GFXFactory given, cannot create graphics surface.";
constexpr char kCannotFree[] = "no GFXFactory given, cannot free graphics surface.";

void WarnNoFactory(const char* operation, const char* consequence) {
  CLog::GetSingletonPtr()->Warning() << "Gfx::" << operation << "() - " << consequence << "\n";
}

}  // namespace

IPixel* NewBuffer(int width, int height) {
  if (ourFactory == nullptr) {
    WarnNoFactory("NewBuffer", kCannotCreate);
    return NullImage();
  }
  return ourFactory->NewBuffer(width, height);
}

IPixel* NewBuffer(IPixel* image) {
  if (ourFactory == nullptr) {
    WarnNoFactory("NewBuffer", kCannotCreate);
    return NullImage();
  }
  return ourFactory->NewBuffer(image);
}

IPixel* LoadImage(const std::string& file, std::uint32_t colorKey) {
  if (ourFactory == nullptr) {
    WarnNoFactory("LoadImage", kCannotCreate);
    return NullImage();
  }
  return ourFactory->LoadImage(file, CColor(colorKey));
}

void FreeImage(IPixel* image) {
  if (ourFactory == nullptr) {
    WarnNoFactory("FreeImage", kCannotFree);
    return;
  }
  ourFactory->FreeImage(image);
}

IPixel* NewScreenBuffer(int width, int height, std::uint32_t colorKey) {
  if (ourFactory == nullptr) {
    WarnNoFactory("NewBuffer", kCannotCreate);
    return NullImage();
  }
  return ourFactory->NewBuffer(width, height, CColor(colorKey));
}

CRect<int> SolidPart(const IPixel& picture) {
  return ourFactory != nullptr ? ourFactory->SolidPart(picture)
                               : CRect<int>{0, 0, picture.GetWidth(), picture.GetHeight()};
}

void CopyPixels(IPixel* source, const CRect<int>& sourceRect, IPixel* target, int x, int y) {
  if (ourFactory != nullptr) {
    ourFactory->CopyPixels(source, sourceRect, target, x, y);
  }
}

IPixel* NullImage() {
  static CPixelNull& image = *new CPixelNull;
  return &image;
}

CGfxFactory* GetFactory() { return ourFactory; }
void SetFactory(CGfxFactory* factory) { ourFactory = factory; }

IPixel* GetScreen() { return ourScreen != nullptr ? ourScreen : NullImage(); }
void SetScreen(IPixel* screen) { ourScreen = screen; }

CRect<int>& ScreenRect() {
  static constinit CRect<int> rect;
  return rect;
}

int& ScreenBpp() {
  static constinit int bitsPerPixel = 32;
  return bitsPerPixel;
}

std::uint32_t& NewSurfaceFlags() {
  static constinit std::uint32_t flags = 0;
  return flags;
}

int& ScaleSmoothing() {
  static constinit int smoothing = 0;
  return smoothing;
}

int& RotateSmoothing() {
  static constinit int smoothing = 1;
  return smoothing;
}

}  // namespace vask::Gfx
