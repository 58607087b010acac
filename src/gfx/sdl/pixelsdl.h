#pragma once

#include "gfx/picture/pixel.h"
#include "gfx/sdl/surface.h"

#include <SDL.h>

#include <string>

namespace vask {

// A picture over an SDL surface. The surface may be shared with other pictures of the same file; it
// is released through the texture manager.
class CPixelSDL : public IPixel {
 public:
  CPixelSDL() = default;
  // Takes the caller's reference to the surface over; null makes an empty picture.
  explicit CPixelSDL(SDL_Surface* surface);
  CPixelSDL(SDL_Surface* surface, const CColor& colorKey, std::string fileName);
  CPixelSDL(const CPixelSDL&) = delete;
  CPixelSDL& operator=(const CPixelSDL&) = delete;

  ~CPixelSDL() override;
  bool IsStatic() const override { return false; }
  int GetType() const override { return 1; }
  bool IsEmpty() const override { return mySurface == nullptr; }
  void PutPixel(int x, int y, const CColor& color) override;
  // Returns alpha 255 for a picture without alpha, the palette's colour for one with a palette.
  CColor GetPixel(int x, int y) const override;
  void ClearRect(const CRect<int>& rect) override;
  int GetWidth() const override { return myRect.w; }
  int GetHeight() const override { return myRect.h; }
  IPixel* Scale(int width, int height) const override;
  IPixel* Rotate(float degrees) const override;
  IPixel* CloneWithAlpha(int alpha) const override;
  IPixel* Clone() const override;
  // The size of `dest` is ignored.
  bool Blit(IPixel* target, const CRect<int>& source, const CRect<int>& dest) const override;
  bool BlitTo(IPixel* target) const override;
  void SetRect(const CRect<int>& rect) override;
  CRect<int> GetRect() const override { return myRect; }
  bool IsRectChanged() const override { return myRect != myFullRect; }
  int GetSurfaceWidth() const override { return myFullRect.w; }
  int GetSurfaceHeight() const override { return myFullRect.h; }
  int GetX() const override { return myRect.x; }
  int GetY() const override { return myRect.y; }
  void SetParam(int which, const CAnyContainer& value) override;
  bool SaveToFile(const std::string& name) const override;
  std::string GetFileName() const override { return myFileName; }
  void Flip() override {}
  void AddDirtyRect(const CRect<int>&) override {}

  // The rectangle (relative to the image rectangle) in pixels of the surface, cut to the image
  // rectangle and the surface; all zero when nothing is left.
  virtual CRect<int> ClipRect(const CRect<int>& rect) const;
  // The image rectangle as a surface of its own, owned by the picture; null for an empty picture.
  virtual SDL_Surface* GetClippedSurface() const;
  virtual SDL_Surface* GetSurface() const { return mySurface; }
  // Replaces the surface, and releases the old one when `releaseOld` is set.
  virtual void SetSurface(SDL_Surface* surface, bool releaseOld);

  // What Gfx::CopyPixels promises, between two SDL pictures.
  void CopyPixels(const CRect<int>& source, CPixelSDL& target, int x, int y) const;
  // What Gfx::SolidPart promises.
  CRect<int> SolidPart() const;
  bool UsesAlphaBlit() const { return myUseAlphaBlit; }
  void SetFileName(const std::string& name) { myFileName = name; }

 private:
  // An area of this surface and its position on the target's; the area may be empty.
  struct SCopy {
    CRect<int> area;
    int x;
    int y;
  };
  SCopy ClipCopy(const CPixelSDL& target, const CRect<int>& source, int x, int y) const;
  bool Draw(CPixelSDL& target, const SCopy& copy) const;
  // The part of the image rectangle that the surface has.
  CRect<int> ShownArea() const;
  void DropClip() const { myClippedSurface.reset(); }

  SDL_Surface* mySurface = nullptr;
  mutable sdl::SurfacePtr myClippedSurface;  // cached; null when it is mySurface or not made yet
  bool myUseAlphaBlit = false;
  CRect<int> myRect;
  CRect<int> myFullRect;
  std::string myFileName;
};

}  // namespace vask
