#pragma once

#include <memory>
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

// A font from a file. A name that ends in "ogf" is read as an OGF file, any other gives the system
// font. Never null.
std::unique_ptr<CFont> LoadFont(const std::string& fileName);

}  // namespace vask
