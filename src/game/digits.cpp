#include "game/digits.h"

#include "game/gamefiles.h"
#include "gfx/sprite/screenlayer.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"

#include <memory>
#include <string>
#include <utility>

namespace brumble {

int NumberWidth(int number) {
  return vask::LoadFont(kDigitsFontFile)->GetTextWidth(std::to_string(number));
}

vask::CSpritePtr ShowNumber(int number, SScreenPoint place, int depth) {
  std::unique_ptr<vask::CFont> font = vask::LoadFont(kDigitsFontFile);
  if (font->GetSheet()->IsEmpty()) {
    return {};
  }
  const std::string text = std::to_string(number);
  const int width = font->GetTextWidth(text);
  const int height = font->GetLineHeight();
  vask::CSpritePtr sprite(new vask::CTextSprite(std::move(font), width, height));
  sprite->SetPosition(place.x, place.y);
  sprite->SetZ(depth);
  sprite->SetText(text);
  sprite->SetParent(vask::CScreenLayer::GetSingletonPtr());
  return sprite;
}

}  // namespace brumble
