#pragma once

#include "designpatterns/singleton.h"
#include "gfx/sprite/sprite.h"
#include "gfx/sprite/spritefactory.h"

#include <algorithm>
#include <string>

namespace vask::ui {

// All access from widgets to their sprites. Each operation ignores an empty pointer.
template <typename SpritePtr, typename Factory>
class CGfxHandler : public CStaticSingleton<CGfxHandler<SpritePtr, Factory>> {
 public:
  // The sprite of the file; an empty pointer for an empty name.
  SpritePtr Load(const std::string& fileName) const {
    return fileName.empty() ? SpritePtr() : SpritePtr(Factory::GetSingletonPtr()->Load(fileName));
  }
  void SetPosition(const SpritePtr& sprite, int x, int y) const {
    if (sprite) {
      sprite->SetPosition(x, y);
    }
  }
  // Clamps the size to what a picture can have: a widget's may be anything.
  void SetSize(const SpritePtr& sprite, int width, int height) const {
    if (sprite) {
      sprite->SetSize(std::clamp(width, kMinSide, kMaxSide),
                      std::clamp(height, kMinSide, kMaxSide));
    }
  }
  // Lower depths are drawn over greater ones.
  void SetDepth(const SpritePtr& sprite, int depth) const {
    if (sprite) {
      sprite->SetZ(depth);
    }
  }
  // A sprite without animations ignores it.
  void PlayAnimation(const SpritePtr& sprite, const std::string& name) const {
    if (sprite) {
      sprite->PlayAnimation(name);
    }
  }

 private:
  static constexpr int kMinSide = 1;
  static constexpr int kMaxSide = 8192;
};

// The handler of all widgets, created on first use.
inline auto& GetGfxHandler() {
  return CGfxHandler<CSmartPtr<CSprite>, CSpriteFactory>::GetSingleton();
}

}  // namespace vask::ui
