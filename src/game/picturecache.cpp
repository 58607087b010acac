#include "game/picturecache.h"

#include "utils/xml/xml.h"

namespace brumble {
namespace {

constexpr const char* kImageElement = "ImageFilename";

// The picture that the sprite file names; empty for none.
std::string PictureOf(const std::string& spriteFile) {
  const std::unique_ptr<vask::CXmlElement> root = vask::ReadXmlFile(spriteFile);
  const int children = root != nullptr ? root->GetChildCount() : 0;
  for (int i = 0; i < children; ++i) {
    if (root->GetChild(i)->GetName() == kImageElement) {
      return root->GetChild(i)->GetContent();
    }
  }
  return {};
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
