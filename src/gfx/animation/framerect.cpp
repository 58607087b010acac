#include "gfx/animation/framerect.h"

#include "gfx/sprite/sprite.h"
#include "utils/xml/xmlcontext.h"

#include <utility>

namespace vask {
namespace {

const CFrameTypeRegistrar<CFrameRect> theRegistrar(IFrame::frame_rect);

}  // namespace

bool CFrameRect::Apply(CSprite* sprite, unsigned elapsed) {
  sprite->SetImageRect(myRect);
  return myWrapped != nullptr ? myWrapped->Apply(sprite, elapsed) : elapsed >= myFrameLength;
}

unsigned CFrameRect::GetDelay() const {
  return myWrapped != nullptr ? myWrapped->GetDelay() : myFrameLength;
}

unsigned CFrameRect::GetLength() const {
  return myWrapped != nullptr ? myWrapped->GetLength() : myFrameLength;
}

void CFrameRect::Serialize(CXmlContext& xml) {
  xml.OptionalValue("Rect", myRect);
  xml.OptionalValue("FrameLength", myFrameLength);
  if (xml.IsReading()) {
    CXmlElement* wrapped = xml.HasChild("Wrapped") ? xml.GetChild("Wrapped") : nullptr;
    myWrapped = wrapped != nullptr ? ReadFrame(*wrapped, xml.GetFileName()) : nullptr;
  } else if (myWrapped != nullptr) {
    WriteFrame(xml, "Wrapped", *myWrapped);
  }
}

void CFrameRect::Show(CSprite* sprite) {
  sprite->SetImageRect(myRect);
  if (myWrapped != nullptr) {
    myWrapped->Show(sprite);
  }
}

}  // namespace vask
