#include "game/screentransform.h"

namespace brumble {
namespace {

struct CTransform {
  CVec2 offset = {0.0F, 0.0F};
  CVec2 scale = {1.0F, 1.0F};
};

CTransform& Transform() {
  static CTransform transform;
  return transform;
}

}  // namespace

void SetScreenTransform(CVec2 offset, CVec2 scale) {
  Transform().offset = offset;
  Transform().scale = scale;
}

CVec2 ToScreen(CVec2 world) {
  const CTransform& transform = Transform();
  return {world.x * transform.scale.x + transform.offset.x,
          world.y * transform.scale.y + transform.offset.y};
}

CScreenPoint ToScreenPixel(CVec2 world) {
  constexpr CVec2 kHalfPixel = {0.5F, 0.5F};
  const CVec2 screen = ToScreen(world) + kHalfPixel;
  return {static_cast<int>(screen.x), static_cast<int>(screen.y)};
}

}  // namespace brumble
