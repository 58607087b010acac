// Sprite files of each type: a sprite comes, moves with time and goes. What it writes is read as
// the same sprite.

#include "fuzz.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/sprite/spritefactory.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace {

std::string Saved(vask::CSprite& sprite) {
  vask::SaveXml(sprite, "output.xml");
  return vask::fuzz::ReadFile("output.xml");
}

vask::CSpritePtr LoadSprite(const char* file) {
  return vask::CSpritePtr(vask::CSpriteFactory::GetSingletonPtr()->Load(file));
}

void Show(vask::CSprite& sprite) {
  constinit static unsigned ourTime = 0;
  for (int frame = 0; frame < 3; ++frame) {
    ourTime += 100;
    vask::CAnimationUpdator::GetSingletonPtr()->Update(ourTime);
    sprite.SetRotation(static_cast<float>(frame) * 30.0F);
    sprite.SetAlpha(255 - frame * 60);
    vask::CScreenLayer::GetSingletonPtr()->DrawFrame();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  [[maybe_unused]] static auto& screen = *new vask::test::CTestScreen(80, 60);
  vask::fuzz::WriteFile("input.xml", vask::fuzz::ToText(data, size));
  {
    const vask::CSpritePtr sprite = LoadSprite("input.xml");
    const std::string once = Saved(*sprite);
    const vask::CSpritePtr same = LoadSprite("output.xml");
    vask::fuzz::Require(Saved(*same) == once || !vask::fuzz::HasOnlyPlainValues(once));
    Show(*sprite);
  }
  vask::CScreenLayer::DeleteSingleton();
  return 0;
}
