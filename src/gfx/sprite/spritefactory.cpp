#include "gfx/sprite/spritefactory.h"

#include "gfx/animation/animatedsprite.h"
#include "gfx/sprite/screenlayer.h"
#include "gfx/text/textsprite.h"
#include "utils/xml/xml.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace vask {
namespace {

// By type number.
constexpr std::array<const char*, 5> kTypeNames = {
    "sprite_base", "sprite_layer", "sprite_screenlayer", "sprite_text", "sprite_animated"};
constexpr std::string_view kSpriteFileEnd = "xml";

bool IsSpriteFile(std::string_view fileName) {
  return fileName.size() >= kSpriteFileEnd.size() &&
         fileName.substr(fileName.size() - kSpriteFileEnd.size()) == kSpriteFileEnd;
}

// The screen layer belongs to itself. It is counted once for itself, so that the last smart pointer
// of somebody else does not delete it.
CSprite* ScreenLayer() {
  CSprite* layer = CScreenLayer::GetSingletonPtr();
  CSmartPtrManager<CSprite>* owners = CSmartPtrManager<CSprite>::GetSingletonPtr();
  if (owners->Count(layer) == 0) {
    owners->Register(layer);
  }
  return layer;
}

CSprite* ReadSprite(const std::string& fileName) {
  const std::unique_ptr<CXmlElement> root = ReadXmlFile(fileName);
  if (root == nullptr) {
    return new CSprite;
  }
  CSprite* sprite =
      CSpriteFactory::Create(CSpriteFactory::TypeFromName(root->GetAttribute("type").ToString()));
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
    screen->RefreshAll();  // it has no layer that it could tell of its change
  } else {
    sprite->SetParent(screen);
  }
  sprite->SetName(fileName);
  return sprite;
}

CSprite* CSpriteFactory::Create(int type) {
  switch (type) {
    case CSprite::kBase:
      return new CSprite;
    case CSprite::kLayer:
      return new CSpriteLayer;
    case CSprite::kScreenLayer:
      return ScreenLayer();
    case CSprite::kText:
      return new CTextSprite;
    case CSprite::kAnimated:
      return new CAnimatedSprite;
    default:
      return nullptr;
  }
}

int CSpriteFactory::TypeFromName(const std::string& name) {
  const auto* const found = std::find(kTypeNames.begin(), kTypeNames.end(), name);
  return found == kTypeNames.end() ? CSprite::kBase : static_cast<int>(found - kTypeNames.begin());
}

const char* CSpriteFactory::NameFromType(int type) {
  const auto number = static_cast<std::size_t>(type);
  return kTypeNames[number < kTypeNames.size() ? number : 0];
}

}  // namespace vask
