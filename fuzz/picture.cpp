// A picture file is loaded as for a sprite, written, loaded again as the same, and shown scaled,
// turned and faded.

#include "fuzz.h"
#include "gfx/sprite/spritefactory.h"
#include "support/testpicture.h"

namespace {

void CheckSaved(const vask::IPixel& picture) {
  if (!picture.IsEmpty()) {
    vask::fuzz::Require(picture.SaveToFile("output.tga"));
    const vask::Gfx::ImagePtr same(vask::Gfx::LoadImage("output.tga", vask::Gfx::kMagenta));
    vask::fuzz::Require(!same->IsEmpty() &&
                        vask::test::PixelsOf(*same) == vask::test::PixelsOf(picture));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  [[maybe_unused]] static auto& screen = *new vask::test::CTestScreen(80, 60);
  vask::fuzz::WriteFile("input.png", vask::fuzz::ToText(data, size));
  const vask::CSpritePtr sprite(vask::CSpriteFactory::GetSingletonPtr()->Load("input.png"));
  const auto draw = [] { vask::CScreenLayer::GetSingletonPtr()->DrawFrame(); };
  draw();
  CheckSaved(*sprite->GetImage());
  sprite->SetSize(50, 70);
  draw();
  sprite->SetRotation(30);
  draw();
  sprite->SetAlpha(100);
  draw();
  return 0;
}
