#pragma once

#include "gfx/sprite/sprite.h"
#include "gfx/text/font.h"

#include <memory>
#include <string>

namespace vask {

// A sprite that shows a text over an optional backdrop picture. The text is laid out in the font
// rectangle by the font's alignment; without one it is a single line from the pen start.
//
//   CSpritePtr sign(new CTextSprite(LoadFont("data/gfx/numbers.ogf"), 200, 50));
//   sign->SetParent(CScreenLayer::GetSingletonPtr());
//   sign->SetText("+500");
class CTextSprite : public CSprite {
 public:
  // For files: everything zero and empty.
  CTextSprite();
  // A transparent picture of width by height pixels on which the text is drawn.
  CTextSprite(std::unique_ptr<CFont> font, int width, int height);
  ~CTextSprite() override;

  int GetTypeId() const override;
  // A file gives the size of the sprite in "ImageRect". Without a "FontRect" the text has the whole
  // sprite; without a "FontStartPosition" it starts at the corner of its rectangle.
  void Serialize(CXmlContext& xml) override;
  // A new picture of that size, with the text laid out again: text is never scaled. The font
  // rectangle keeps its distance from the right and the lower edge.
  void SetSize(int width, int height) override;
  void SetText(const std::string& text) override;

  // The picture below the text, from the sprite's corner; null for none.
  void SetBackdrop(Gfx::ImagePtr backdrop);

  const std::string& GetText() const { return myText; }
  // Null for a sprite from a file that names no font. A change of the alignment is seen at the next
  // text.
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
