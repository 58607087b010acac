#include "game/gfxfactory.h"

#include "gfx/sprite/spritefactory.h"
#include "utils/log/log.h"
#include "utils/xml/xml.h"

#include <sstream>

namespace brumble {
namespace {

constexpr const char* kSpriteElement = "Sprite";
constexpr const char* kHandleAttribute = "handle";
constexpr const char* kFileAttribute = "sprite_file";

}  // namespace

void CGfxFactory::Load(const std::string& file, const std::string& /*rootName*/) {
  if (!vask::LoadXml(*this, file)) {
    vask::Log().Warning() << "The table of sprites " << file << " can't be read\n";
  }
}

std::string CGfxFactory::GetFile(int handle) const {
  const auto found = myFiles.find(handle);
  return found != myFiles.end() ? found->second : std::string();
}

vask::CSpritePtr CGfxFactory::LoadSprite(const std::string& file) const {
  if (file.empty()) {
    return {};
  }
  const vask::CSpritePtr sprite(vask::CSpriteFactory::GetSingletonPtr()->Load(file));
  return sprite->IsEmpty() ? vask::CSpritePtr() : sprite;
}

vask::CSpritePtr CGfxFactory::LoadSpriteByHandle(int handle) const {
  return LoadSprite(GetFile(handle));
}

void CGfxFactory::Serialize(vask::CXmlContext& xml) {
  if (xml.IsReading()) {
    Read(xml);
  } else {
    Write(xml);
  }
}

void CGfxFactory::Read(vask::CXmlContext& xml) {
  const vask::CXmlElement* const table = xml.GetCurrent();
  if (table == nullptr) {
    return;
  }
  myFiles.clear();
  table->ForEachChild(kSpriteElement, [this](const vask::CXmlElement& entry) {
    int handle = 0;
    if (entry.HasAttribute(kFileAttribute) &&
        std::istringstream(entry.GetAttribute(kHandleAttribute).ToString()) >> handle) {
      myFiles.emplace(handle, entry.GetAttribute(kFileAttribute).ToString());
    }
  });
}

void CGfxFactory::Write(vask::CXmlContext& xml) const {
  for (const auto& [handle, file] : myFiles) {
    xml.BeginNode(kSpriteElement);
    xml.SetAttribute(kHandleAttribute, handle);
    xml.SetAttribute(kFileAttribute, file);
    xml.EndNode(kSpriteElement);
  }
}

}  // namespace brumble
