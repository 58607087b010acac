#include "gfx/animation/animation.h"

#include "gfx/sprite/sprite.h"
#include "utils/containers/varref.h"
#include "utils/xml/xmlcontext.h"

#include <algorithm>
#include <utility>

namespace vask {

void CAnimation::AddFrame(std::unique_ptr<IFrame> frame) {
  if (frame != nullptr) {
    myFrames.push_back(std::move(frame));
  }
}

unsigned CAnimation::GetDueTime() const {
  return HasFrames() ? myLastTick + myFrames[myCurrentFrame]->GetDelay() : myLastTick;
}

void CAnimation::Start(unsigned time) { myFrameStart = myLastTick = time; }

IFrame& CAnimation::Select(unsigned frame, unsigned time) {
  const unsigned wanted = frame < myFrames.size() ? frame : 0;
  if (wanted != myCurrentFrame) {
    myCurrentFrame = wanted;
    myFrameStart = time;
  }
  return *myFrames[myCurrentFrame];
}

void CAnimation::ShowFrom(unsigned frame, CSprite* sprite) {
  const auto first = frame < myFrames.size() ? myFrames.begin() + frame : myFrames.begin();
  const auto shown = std::find_if(first, myFrames.end(), [](const auto& candidate) {
    return candidate->GetType() == IFrame::frame_rect;
  });
  if (shown != myFrames.end()) {
    (*shown)->Show(sprite);
  }
}

CAnimation::EStep CAnimation::Step(CSprite* sprite, bool isOver, unsigned time) {
  if (!isOver && time - myFrameStart < myFrames[myCurrentFrame]->GetLength()) {
    myLastTick = time;
    return EStep::kStays;
  }
  const bool goesOn = GoOn();
  myFrameStart = myLastTick = time;
  if (!goesOn) {
    return EStep::kEnded;
  }
  myFrames[myCurrentFrame]->Show(sprite);
  return EStep::kAdvanced;
}

bool CAnimation::GoOn() {
  if (myCurrentFrame + 1 < myFrames.size()) {
    ++myCurrentFrame;
    return true;
  }
  if (myLoop) {
    myCurrentFrame = 0;
  }
  return myLoop;
}

void CAnimation::Serialize(CXmlContext& xml) {
  if (xml.IsWriting()) {
    xml.SetAttribute("name", myName);
    xml.SetAttribute("loop", myLoop);
    for (const auto& frame : myFrames) {
      WriteFrame(xml, "Frame", *frame);
    }
    return;
  }
  const CXmlElement* element = xml.GetCurrent();
  if (element == nullptr) {
    return;
  }
  myName = element->GetAttribute("name").ToString();
  ReadFromText(element->GetAttribute("loop").ToString(), myLoop);
  element->ForEachChild("Frame",
                        [&](CXmlElement& child) { AddFrame(ReadFrame(child, xml.GetFileName())); });
}

}  // namespace vask
