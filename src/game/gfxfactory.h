#pragma once

#include "designpatterns/singleton.h"
#include "gfx/sprite/sprite.h"

#include <map>
#include <string>

namespace vask {
class CXmlContext;
}

namespace brumble {

// The game's sprite table: maps handles to sprite files. 0 to 6 are the arena walls, 7 is the
// monster, 8 a kitten. It also loads sprites, but returns none that are empty.
class CGfxFactory : public vask::CSingleton<CGfxFactory> {
 public:
  // Reads the table from the file; a missing file leaves the table as it is. Any root element is
  // taken: its name counts only when the table is written.
  void Load(const std::string& file, const std::string& rootName);
  // Empty for a handle that is not in the table.
  std::string GetFile(int handle) const;
  // An empty pointer when the file shows nothing, or names none.
  vask::CSpritePtr LoadSprite(const std::string& file) const;
  vask::CSpritePtr LoadSpriteByHandle(int handle) const;

  // One element "Sprite" per handle, with the attributes "handle" and "sprite_file". Others, and
  // those that lack one of the two, are skipped; of two with the same handle the first counts.
  void Serialize(vask::CXmlContext& xml);

  const std::map<int, std::string>& GetFiles() const { return myFiles; }

 private:
  void Read(vask::CXmlContext& xml);
  void Write(vask::CXmlContext& xml) const;

  std::map<int, std::string> myFiles;
};

}  // namespace brumble
