#include "gfx/text/lotsatextsprite.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

namespace vask::test {

// A text of any height that notes what it was asked for.
struct CPaper : ILotsATextDrawer {
  int GetTextHeight() override { return height; }
  bool Draw(IPixel* surface, const CRect<int>& area, bool force) override {
    asked = std::to_string(area.y) + "," + std::to_string(surface->GetWidth()) + (force ? "!" : "");
    return false;
  }
  int height = 0;
  std::string asked;
};

TEST(LotsATextTest, KeepsItsPlaceInAGrowingText) {
  const CTestScreen screen(40, 30);
  CPaper paper;
  CLotsATextSprite view(20, 20);
  view.ScrollBy(5), view.SetDrawer(&paper);  // nothing without a text
  // Height of the text, pixels to scroll by; what is asked for then.
  // clang-format off
  const std::tuple<int, int, const char*> steps[] = {
      {4, 0, "-16,20"}, {4, -3, "-16,20"}, {25, -2, "3,20"}, {45, 0, "3,20"}, {45, -9, "0,20"}, {50, 0, "0,20"},
      {50, 30, "30,20"}, {55, 0, "35,20"}, {1200000, -1000, "1198980,20"}, {1200012, 0, "1198980,20"}, {9, 0, "-11,20"},
      {30, 0, "10,20"}};
  // clang-format on
  for (const auto& [height, scroll, asked] : steps) {
    paper.height = height, paper.asked = "";
    scroll != 0 ? view.ScrollBy(scroll) : view.Update();
    EXPECT_EQ(paper.asked, asked) << height;
  }
  view.SetSize(30, 10);
  EXPECT_EQ(paper.asked, "20,30!");
  view.ScrollBy(-5), paper.height = 60, view.SetSize(20, 10);
  EXPECT_EQ(paper.asked, "15,20!") << "grown since";
}

}  // namespace vask::test
