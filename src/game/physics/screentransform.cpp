#include "game/physics/screentransform.h"

namespace brumble {
namespace {

struct STransform {
  SVec2 offset = {0.0F, 0.0F};
  SVec2 scale = {1.0F, 1.0F};
};

STransform& Transform() {
  static STransform transform;
  return transform;
}

}  // namespace

void SetScreenTransform(SVec2 offset, SVec2 scale) {
  Transform().offset = offset;
  Transform().scale = scale;
}

SVec2 ToScreen(SVec2 world) {
  const STransform& transform = Transform();
  return {world.x * transform.scale.x + transform.offset.x,
          world.y * transform.scale.y + transform.offset.y};
}

SScreenPoint ToScreenPixel(SVec2 world) {
  constexpr SVec2 kHalfPixel = {0.5F, 0.5F};
  const SVec2 screen = ToScreen(world) + kHalfPixel;
  return {static_cast<int>(screen.x), static_cast<int>(screen.y)};
}

}  // namespace brumble
