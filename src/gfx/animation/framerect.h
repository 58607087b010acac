#pragma once

#include "gfx/animation/frame.h"
#include "utils/rect.h"

#include <memory>

namespace vask {

// Shows a rectangle of the picture sheet for a time. It may wrap another frame, usually a sound;
// the wrapped frame's times then replace its own.
class CFrameRect : public IFrame {
 public:
  CFrameRect() = default;
  // In pixels of the sheet; the length in milliseconds.
  CFrameRect(const CRect<int>& rect, unsigned length, std::unique_ptr<IFrame> wrapped = nullptr);

  frame_type GetType() const override { return frame_rect; }
  bool Apply(CSprite* sprite, unsigned elapsed) override;
  unsigned GetDelay() const override;
  unsigned GetLength() const override;
  void Serialize(CXmlContext& xml) override;
  void Show(CSprite* sprite) override;

 private:
  CRect<int> myRect;
  unsigned myFrameLength = 0;
  std::unique_ptr<IFrame> myWrapped;
};

}  // namespace vask
