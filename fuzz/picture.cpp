// A picture file is loaded as for a sprite, shown scaled, turned and faded, and written.

#include "fuzz.h"
#include "gfx/sprite/spritefactory.h"
#include "support/testpicture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  [[maybe_unused]] static auto& screen = *new vask::test::CTestScreen(80, 60);
  vask::fuzz::WriteFile("input.png", vask::fuzz::ToText(data, size));
  const vask::CSpritePtr sprite(vask::CSpriteFactory::GetSingletonPtr()->Load("input.png"));
  const auto draw = [] { vask::CScreenLayer::GetSingletonPtr()->DrawFrame(); };
  draw();
  sprite->GetImage()->SaveToFile("output.tga");
  sprite->SetSize(50, 70);
  draw();
  sprite->SetRotation(30);
  draw();
  sprite->SetAlpha(100);
  draw();
  return 0;
}
