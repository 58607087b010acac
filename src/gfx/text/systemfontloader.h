#pragma once

#include "gfx/text/fontloader.h"

#include <string>

namespace vask {

// Draws the font that is compiled in: 6 by 12 pixels for every character, white with a dark shadow.
// The file name only names the font.
class CSystemFontLoader : public IFontLoader {
 public:
  std::string GetKey() const override { return "system"; }
  void Load(CFont& font, const std::string& fileName) override;
};

}  // namespace vask
