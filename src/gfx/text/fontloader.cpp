#include "gfx/text/fontloader.h"

#include "gfx/text/font.h"
#include "gfx/text/ogffontloader.h"
#include "gfx/text/systemfontloader.h"

namespace vask {

std::unique_ptr<CFont> LoadFont(const std::string& fileName) {
  auto font = std::make_unique<CFont>();
  COgfFontLoader ogf;
  CSystemFontLoader system;
  IFontLoader& loader = fileName.ends_with(ogf.GetKey()) ? static_cast<IFontLoader&>(ogf) : system;
  loader.Load(*font, fileName);
  return font;
}

}  // namespace vask
