#pragma once

#include "gfx/animation/frame.h"
#include "utils/rect.h"

#include <memory>

namespace vask {

// Shows a rectangle of the picture sheet for a time. It may wrap another frame, usually a sound;
// the wrapped frame's times then replace its own.
class CFrameRect : public IFrame {
 public:
  frame_type GetType() const override { return frame_rect; }
  bool Apply(CSprite* sprite, unsigned elapsed) override;
  unsigned GetDelay() const override;
  unsigned GetLength() const override;
  void Serialize(CXmlContext& xml) override;
  void Show(CSprite* sprite) override;

 private:
  CRect<int> myRect;           // in pixels of the sheet
  unsigned myFrameLength = 0;  // in milliseconds
  std::unique_ptr<IFrame> myWrapped;
};

}  // namespace vask
