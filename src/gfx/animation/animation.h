#pragma once

#include "gfx/animation/frame.h"

#include <memory>
#include <string>
#include <vector>

namespace vask {

class CSprite;
class CXmlContext;

// A named list of frames and the state of its playback. Times are milliseconds on the clock of the
// sprite that plays it.
class CAnimation {
 public:
  enum class EStep { kStays, kAdvanced, kEnded };

  const std::string& GetName() const { return myName; }
  void AddFrame(std::unique_ptr<IFrame> frame);
  bool HasFrames() const { return !myFrames.empty(); }
  unsigned GetCurrentFrame() const { return myCurrentFrame; }
  unsigned GetLastTick() const { return myLastTick; }
  // When the sprite is due again; the last tick for an animation without frames.
  unsigned GetDueTime() const;

  // The sprite's clock starts; no time has passed on the current frame.
  void Start(unsigned time);
  // Makes the frame the current one (an index past the end is frame 0) and returns it. Only for an
  // animation with frames.
  IFrame& Select(unsigned frame, unsigned time);
  // Shows the first picture from the frame on: what an animation shows before its first tick.
  void ShowFrom(unsigned frame, CSprite* sprite);
  // To be called after the current frame was applied, with what it returned: stays on it, shows the
  // next one, or ends on the last one.
  EStep Step(CSprite* sprite, bool isOver, unsigned time);

  void Serialize(CXmlContext& xml);

 private:
  bool GoOn();

  std::string myName;
  std::vector<std::unique_ptr<IFrame>> myFrames;
  bool myLoop = false;
  unsigned myCurrentFrame = 0;
  unsigned myFrameStart = 0;
  unsigned myLastTick = 0;
};

}  // namespace vask
