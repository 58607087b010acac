#pragma once

#include "gfx/sprite/sprite.h"
#include "gfx/text/font.h"

#include <memory>
#include <string>

namespace vask {

// A sprite that shows a text over an optional backdrop picture. The text is laid out in the font
// rectangle by the font's alignment; without one it is a single line from the pen start.
//
//     const CSpritePtr sign(new CTextSprite(LoadFont("system"), 60, 20));
//     sign->SetParent(CScreenLayer::GetSingletonPtr());
//     sign->SetText("+500");
class CTextSprite : public CSprite {
 public:
  // Everything zero and empty, to be read from a file.
  CTextSprite();
  // A transparent picture of width by height pixels on which the text is drawn.
  CTextSprite(std::unique_ptr<CFont> font, int width, int height);
  ~CTextSprite() override;

  int GetTypeId() const override;
  // The sprite's size is in "ImageRect". The default of "FontRect" is the whole sprite, that of
  // "FontStartPosition" the corner of that rectangle.
  void Serialize(CXmlContext& xml) override;
  // Makes a new picture of that size and lays the text out again: text is never scaled. The font
  // rectangle keeps its distance from the right and the lower edge.
  void SetSize(int width, int height) override;
  void SetText(const std::string& text) override;

  // The picture below the text, from the sprite's corner; null for none.
  void SetBackdrop(Gfx::ImagePtr backdrop);

  const std::string& GetText() const { return myText; }
  // Null for a sprite from a file that names no font. After a change of the alignment the next text
  // is laid out by it.
  CFont* GetFont() const { return myFont.get(); }

 private:
  void ReadFields(CXmlContext& xml);
  void WriteFields(CXmlContext& xml);
  void TakeBuffer(int width, int height);
  void Redraw();

  CRect<int> myFontRect;
  SPenPosition myFontStartPosition;
  int myWidth = 0;
  int myHeight = 0;
  Gfx::ImagePtr myBackdrop;
  std::unique_ptr<CFont> myFont;
  std::string myText;
};

}  // namespace vask
