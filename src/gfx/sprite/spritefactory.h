#pragma once

#include "designpatterns/singleton.h"

#include <string>

namespace vask {

class CSprite;

// Turns a file name into a sprite in the screen layer.
class CSpriteFactory : public CStaticSingleton<CSpriteFactory> {
 public:
  // A name that ends in "xml" is read as a sprite file, any other is a picture for a plain sprite.
  // Never null, but empty (CSprite::IsEmpty) when nothing could be loaded. The caller owns it and
  // holds it in a CSpritePtr. A file of type "sprite_screenlayer" yields the screen layer itself,
  // which such pointers never delete.
  CSprite* Load(const std::string& fileName);
};

}  // namespace vask
