#pragma once

#include "designpatterns/plugfactory.h"

#include <memory>
#include <string>

namespace vask {

class CSprite;
class CXmlContext;
class CXmlElement;

// One step of an animation: it shows a part of the picture sheet, or plays a sound. Frames are made
// by their type through the process-wide frame factory.
class IFrame {
 public:
  enum frame_type : int { frame_rect = 0, frame_sound = 1 };

  virtual ~IFrame() = default;
  virtual frame_type GetType() const = 0;
  // Shows the rectangle or plays the sound; `elapsed` is the time since the last tick in
  // milliseconds. Returns whether the frame is over. The sound may delete the sprite and, with it,
  // the frame.
  virtual bool Apply(CSprite* sprite, unsigned elapsed) = 0;
  // Milliseconds until the sprite is due again, and milliseconds that the frame lasts.
  virtual unsigned GetDelay() const = 0;
  virtual unsigned GetLength() const = 0;
  virtual void Serialize(CXmlContext& xml) = 0;
  // Called when the frame becomes the current one: shows the rectangle, plays nothing yet.
  virtual void Show(CSprite* sprite) = 0;
};

using CFrameFactory = CSingletonFactory<IFrame::frame_type, IFrame>;

// Enters a frame class into the factory. Each class has one such object in its source file; it may
// be constructed before main.
template <typename Frame>
class CFrameTypeRegistrar {
 public:
  explicit CFrameTypeRegistrar(IFrame::frame_type type) {
    CFrameFactory::GetSingletonPtr()->Register<Frame>(type);
  }
};

// Reads the frame that an element describes. Null, with one line in the log, for a missing or
// unknown "type", and for a frame that is wrapped more than 16 deep. The file name is that of the
// whole document.
std::unique_ptr<IFrame> ReadFrame(CXmlElement& element, const std::string& fileName);

// Writes the frame as a child element of the given name.
void WriteFrame(CXmlContext& xml, const char* elementName, IFrame& frame);

}  // namespace vask
