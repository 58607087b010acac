#pragma once

#include <string>

namespace vask {

class CFont;

// Fills a font. What cannot be loaded is logged and leaves the font without glyphs.
class IFontLoader {
 public:
  virtual ~IFontLoader() = default;
  // "ogf" or "system".
  virtual std::string GetKey() const = 0;
  virtual void Load(CFont& font, const std::string& fileName) = 0;
};

}  // namespace vask
