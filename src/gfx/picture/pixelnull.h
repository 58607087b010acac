#pragma once

#include "gfx/picture/pixel.h"

namespace vask {

// Takes the place of a missing picture: it is empty, draws nothing and is never deleted.
class CPixelNull : public IPixel {
 public:
  bool IsStatic() const override { return true; }
  int GetType() const override { return 0; }
  bool IsEmpty() const override { return true; }
  void PutPixel(int, int, const CColor&) override {}
  CColor GetPixel(int, int) const override { return {}; }
  void ClearRect(const CRect<int>&) override {}
  int GetWidth() const override { return 0; }
  int GetHeight() const override { return 0; }
  IPixel* Scale(int, int) const override;
  IPixel* Rotate(float) const override;
  IPixel* CloneWithAlpha(int) const override;
  IPixel* Clone() const override;
  bool Blit(IPixel*, const CRect<int>&, const CRect<int>&) const override { return false; }
  bool BlitTo(IPixel*) const override { return false; }
  void SetRect(const CRect<int>&) override {}
  CRect<int> GetRect() const override { return {}; }
  bool IsRectChanged() const override { return false; }
  int GetSurfaceWidth() const override { return 0; }
  int GetSurfaceHeight() const override { return 0; }
  int GetX() const override { return 0; }
  int GetY() const override { return 0; }
  void SetParam(int, const CAnyContainer&) override {}
  bool SaveToFile(const std::string&) const override { return false; }
  std::string GetFileName() const override { return {}; }
  void Flip() override {}
  void AddDirtyRect(const CRect<int>&) override {}
};

}  // namespace vask
