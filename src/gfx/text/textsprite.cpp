#include "gfx/text/textsprite.h"

#include "gfx/sprite/spritetypes.h"
#include "gfx/text/fontloader.h"
#include "utils/xml/xmlcontext.h"

#include <algorithm>

namespace vask {

namespace {

const CSpriteTypeRegistrar theRegistrar(kTextSprite, NewSprite<CTextSprite>);

// Numbers from a file are cut to this, so that the layout cannot overflow.
constexpr int kFarthest = 16384;

void KeepNear(int& value) { value = std::clamp(value, -kFarthest, kFarthest); }

CRect<int> Near(CRect<int> rect) {
  for (int* value : {&rect.x, &rect.y, &rect.w, &rect.h}) {
    KeepNear(*value);
  }
  return rect;
}

}  // namespace

CTextSprite::CTextSprite() = default;

CTextSprite::CTextSprite(std::unique_ptr<CFont> font, int width, int height)
    : myFont(std::move(font)) {
  TakeBuffer(width, height);
  myFontRect = {0, 0, myWidth, myHeight};
}

CTextSprite::~CTextSprite() = default;

int CTextSprite::GetTypeId() const { return kTextSprite.number; }

void CTextSprite::Serialize(CXmlContext& xml) {
  CSprite::Serialize(xml);
  if (xml.IsReading()) {
    ReadFields(xml);
    Redraw();
  } else {
    WriteFields(xml);
  }
}

void CTextSprite::ReadFields(CXmlContext& xml) {
  const CRect<int> size = Near(GetRect());
  TakeBuffer(size.w, size.h);
  CRect<int> start;
  const bool hasStart = xml.HasChild("FontStartPosition");
  if (hasStart) {
    ReadRect(*xml.GetChild("FontStartPosition"), start);
  }
  myFontRect = {0, 0, myWidth, myHeight};
  if (xml.HasChild("FontRect")) {
    myFontRect = {};
    xml.Value("FontRect", myFontRect);
  }
  myFontRect = Near(myFontRect);
  start = hasStart ? Near(start) : myFontRect;
  myFontStartPosition = {start.x, start.y};
  xml.OptionalValue("Text", myText);
  std::string file;
  if (xml.OptionalValue("BackdropFile", file)) {
    myBackdrop.reset(Gfx::LoadImage(file, Gfx::kMagenta));
  }
  if (xml.OptionalValue("FontFile", file)) {
    myFont = LoadFont(file);
  }
}

void CTextSprite::WriteFields(CXmlContext& xml) {
  xml.BeginNode("FontStartPosition");
  xml.SetAttribute("x", myFontStartPosition.x);
  xml.SetAttribute("y", myFontStartPosition.y);
  xml.EndNode("FontStartPosition");
  xml.Value("FontRect", myFontRect);
  xml.Value("Text", myText);
  if (myBackdrop != nullptr) {
    std::string file = myBackdrop->GetFileName();
    xml.Value("BackdropFile", file);
  }
  if (myFont != nullptr) {
    std::string file = myFont->GetFileName();
    xml.Value("FontFile", file);
  }
}

void CTextSprite::SetSize(int width, int height) {
  if (width == myWidth && height == myHeight && !IsEmpty()) {
    return;
  }
  const int oldWidth = myWidth;
  const int oldHeight = myHeight;
  TakeBuffer(width, height);
  myFontRect.w += myWidth - oldWidth;
  myFontRect.h += myHeight - oldHeight;
  Redraw();
}

void CTextSprite::SetText(const std::string& text) {
  if (text == myText) {
    return;
  }
  myText = text;
  Redraw();
}

void CTextSprite::SetBackdrop(Gfx::ImagePtr backdrop) {
  myBackdrop = std::move(backdrop);
  Redraw();
}

void CTextSprite::TakeBuffer(int width, int height) {
  myWidth = std::max(width, 0);
  myHeight = std::max(height, 0);
  ReplaceImage(Gfx::NewBuffer(myWidth, myHeight));
}

void CTextSprite::Redraw() {
  IPixel* image = LoadedImage();
  if (image->IsEmpty()) {
    return;
  }
  image->ClearRect({0, 0, myWidth, myHeight});
  if (myBackdrop != nullptr) {
    myBackdrop->BlitTo(image);
  }
  if (myFont != nullptr) {
    myFont->Write(image, myText, myFontRect, myFontStartPosition);
  }
  ImageChanged();
}

}  // namespace vask
