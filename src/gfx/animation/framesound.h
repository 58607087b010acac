#pragma once

#include "gfx/animation/frame.h"

#include <memory>
#include <string>

namespace vask {

// Plays a sound effect once, through the console command of the audio task; the next frame follows
// at once.
class CFrameSound : public IFrame {
 public:
  frame_type GetType() const override { return frame_sound; }
  bool Apply(CSprite* sprite, unsigned elapsed) override;
  unsigned GetDelay() const override;
  unsigned GetLength() const override;
  void Serialize(CXmlContext& xml) override;
  void Show(CSprite*) override {}

 private:
  // Without a quote, a comma, "::", ";" or "//", which a console line cannot carry.
  std::string mySoundFile;
  std::unique_ptr<IFrame> myWrapped;  // only its times are used
};

}  // namespace vask
