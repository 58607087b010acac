#include "game/picturecache.h"

#include "utils/xml/xml.h"

#include <optional>

namespace brumble {
namespace {

constexpr const char* kImageElement = "ImageFilename";

// The picture that the sprite file names; empty for none.
std::string PictureOf(const std::string& spriteFile) {
  std::optional<std::string> file;
  if (const std::unique_ptr<vask::CXmlElement> root = vask::ReadXmlFile(spriteFile)) {
    root->ForEachChild(kImageElement, [&](const vask::CXmlElement& image) {
      file = file.value_or(image.GetContent());  // the first one counts
    });
  }
  return file.value_or("");
}

}  // namespace

void CPictureCache::Hold(const std::string& spriteFile) {
  const std::string file = PictureOf(spriteFile);
  if (file.empty()) {
    return;
  }
  vask::IPixel* const picture = vask::Gfx::LoadImage(file, vask::Gfx::kMagenta);
  if (!picture->IsEmpty()) {
    myPictures.emplace_back(picture);
  }
}

}  // namespace brumble
