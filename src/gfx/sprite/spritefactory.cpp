#include "gfx/sprite/spritefactory.h"

#include "gfx/sprite/screenlayer.h"
#include "gfx/sprite/spritetypes.h"
#include "utils/log/log.h"
#include "utils/xml/xml.h"

#include <memory>
#include <string_view>

namespace vask {
namespace {

constexpr std::string_view kSpriteFileEnd = "xml";

bool IsSpriteFile(std::string_view fileName) {
  return fileName.size() >= kSpriteFileEnd.size() &&
         fileName.substr(fileName.size() - kSpriteFileEnd.size()) == kSpriteFileEnd;
}

CSprite* ReadSprite(const std::string& fileName) {
  const std::unique_ptr<CXmlElement> root = ReadXmlFile(fileName);
  if (root == nullptr) {
    Log().Warning() << "The sprite file " << fileName << " can't be read\n";
    return new CSprite;
  }
  CSprite* sprite = CreateSprite(SpriteTypeFromName(root->GetAttribute("type").ToString()));
  CXmlContext context(root.get(), CXmlContext::kReading, fileName);
  sprite->Serialize(context);
  return sprite;
}

CSprite* LoadPicture(const std::string& fileName) {
  auto* sprite = new CSprite;
  if (!fileName.empty()) {
    sprite->SetImage(Gfx::LoadImage(fileName, Gfx::kMagenta));
  }
  return sprite;
}

}  // namespace

CSprite* CSpriteFactory::Load(const std::string& fileName) {
  CSprite* sprite = IsSpriteFile(fileName) ? ReadSprite(fileName) : LoadPicture(fileName);
  CScreenLayer* screen = CScreenLayer::GetSingletonPtr();
  if (sprite == screen) {
    screen->RefreshAll();  // it has no layer to report a change to
  } else {
    sprite->SetParent(screen);
  }
  sprite->SetName(fileName);
  return sprite;
}

}  // namespace vask
