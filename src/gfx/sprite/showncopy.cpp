#include "gfx/sprite/showncopy.h"

namespace vask {

Gfx::ImagePtr MakeShownCopy(const IPixel& loaded, const SShownLook& look) {
  const SShownLook::SSize whole{loaded.GetWidth(), loaded.GetHeight()};
  if (loaded.IsEmpty() || whole.w <= 0 || whole.h <= 0) {
    return nullptr;
  }
  const SShownLook::SSize size = look.size.value_or(whole);
  if (size.w == 0 || size.h == 0) {
    return Gfx::ImagePtr(Gfx::NullImage());
  }
  Gfx::ImagePtr copy;
  const auto latest = [&]() -> const IPixel& { return copy != nullptr ? *copy : loaded; };
  if (size != whole) {
    copy.reset(latest().Scale(size.w, size.h));
  }
  if (look.degrees) {
    copy.reset(latest().Rotate(*look.degrees));
  }
  if (look.alpha != 255) {
    copy.reset(latest().CloneWithAlpha(look.alpha));
  }
  return copy;
}

}  // namespace vask
