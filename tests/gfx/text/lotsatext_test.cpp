#include "gfx/text/lotsatextsprite.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

namespace vask::test {

// A text of any height that notes what it is asked to paint.
struct CPaper : ILotsATextDrawer {
  int GetTextHeight() override { return height; }
  bool Draw(IPixel* surface, const CRect<int>& area, bool force) override {
    asked = std::to_string(area.y) + "," + std::to_string(surface->GetWidth()) + (force ? "!" : "");
    return false;
  }
  int height = 0;
  std::string asked;
};

TEST(LotsAText, KeepsItsPlaceInAGrowingText) {
  const CTestScreen screen(40, 30);
  CPaper drawer;

  auto* view = new CLotsATextSprite(30, 20);
  view->SetDrawer(&drawer);  // called every 100 ms
  const CSpritePtr sprite(view);
  sprite->SetParent(CScreenLayer::GetSingletonPtr());

  struct SStep {
    int height;  // of the text
    int scroll = 0;
    const char* asked;  // y, width
  };
  const SStep steps[] = {
      {.height = 4, .asked = "-16,30"},
      {.height = 25, .scroll = -2, .asked = "3,30"},
      {.height = 45, .asked = "3,30"},
      {.height = 45, .scroll = -9, .asked = "0,30"},
      {.height = 50, .scroll = 30, .asked = "30,30"},
      {.height = 55, .asked = "35,30"},
      {.height = 1200000, .scroll = -1000, .asked = "1198980,30"},
      {.height = 1200012, .asked = "1198980,30"},
      {.height = 9, .asked = "-11,30"},
      {.height = 30, .asked = "10,30"},
  };
  for (const SStep& step : steps) {
    drawer.height = step.height;
    view->ScrollBy(step.scroll);
    EXPECT_EQ(drawer.asked, step.asked) << step.height;
  }
  view->SetSize(25, 10);
  EXPECT_EQ(drawer.asked, "20,25!");
}

}  // namespace vask::test
