#pragma once

#include "gfx/picture/gfx.h"

#include <string>
#include <vector>

namespace brumble {

// Keeps decoded pictures alive. Pictures of one file share a surface that is freed with the last of
// them; with one reference held here, no sign, effect or kitten is decoded again during play.
class CPictureCache {
 public:
  // Holds the picture of the sprite file; nothing when it has none.
  void Hold(const std::string& spriteFile);

 private:
  std::vector<vask::Gfx::ImagePtr> myPictures;
};

}  // namespace brumble
