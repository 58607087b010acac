#pragma once

#include <array>
#include <string_view>

namespace vask {

class CSprite;

// A kind of sprite: the number that GetTypeId() returns, and its name in sprite files.
struct SSpriteType {
  int number;
  const char* name;
};

inline constexpr SSpriteType kBaseSprite{0, "sprite_base"};
inline constexpr SSpriteType kLayerSprite{1, "sprite_layer"};
inline constexpr SSpriteType kScreenLayerSprite{2, "sprite_screenlayer"};
inline constexpr SSpriteType kTextSprite{3, "sprite_text"};
inline constexpr SSpriteType kAnimatedSprite{4, "sprite_animated"};

// The names of the kinds of frames in sprite files, by the number that IFrame::GetType() returns.
inline constexpr std::array<const char*, 2> kFrameTypeNames = {"frame_rect", "frame_sound"};

// A new sprite of a class, owned by the caller.
template <typename Sprite>
CSprite* NewSprite() {
  return new Sprite;
}

// Makes a kind of sprite known. Each class of sprites has one such object in its source file; it
// may be constructed before main.
class CSpriteTypeRegistrar {
 public:
  CSpriteTypeRegistrar(const SSpriteType& type, CSprite* (*make)());
};

// A sprite of the type number, made as its kind has registered; null for a number that nobody has
// registered.
CSprite* CreateSprite(int number);

// The number of a registered name, and the name of a registered number; for others those of the
// base sprite.
int SpriteTypeFromName(std::string_view name);
const char* SpriteTypeName(int number);

}  // namespace vask
