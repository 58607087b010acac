#include <gtest/gtest.h>

#include "kernel/applicationfactory.h"
#include "support/testpicture.h"

namespace vask::test {

TEST(Screen, TheListHoldsAsManyRectanglesAsTheVariableSays) {
  CTestScreen screen(64, 48);
  CPixelScreenSDL& picture = screen.Picture();
  CConsole* console = CApplicationFactory::GetSingletonPtr()->GetConsole();
  EXPECT_EQ(console->GetVariable("gfx_flip_rects_size"), "75");
  struct {
    const char* limit;
    int added;
    bool isAll;
  } const cases[] = {{"2", 3, true}, {"0", 500, false}, {"75", 75, false}, {"75", 76, true}};
  for (const auto& c : cases) {
    console->SetVariable("gfx_flip_rects_size", c.limit);
    for (int i = 0; i < c.added; ++i) {
      picture.AddDirtyRect({i % 64, 0, 1, 1});
    }
    EXPECT_EQ(picture.IsUpdateAll(), c.isAll) << c.limit << ", " << c.added;
    picture.Flip();
    EXPECT_FALSE(picture.IsUpdateAll());
    EXPECT_EQ(picture.GetDirtyCount(), 0U);
  }
}

TEST(Screen, RectanglesAreCutToTheScreenAndTheScreenItselfIsEverything) {
  CTestScreen screen(64, 48);
  CPixelScreenSDL& picture = screen.Picture();
  CPixelScreenSDL::FullFlip() = false;
  // SDL would write outside its memory for a rectangle that was not cut.
  for (const CRect<int>& rect : {CRect<int>{-9, -9, 5, 5}, {64, 0, 5, 5}, {-9, -9, 9999, 9999}}) {
    picture.AddDirtyRect(rect);
    EXPECT_EQ(picture.GetDirtyCount(), rect.w > 5 ? 1U : 0U);
  }
  picture.Flip();
  picture.AddDirtyRect({0, 0, 64, 48});
  EXPECT_TRUE(picture.IsUpdateAll());
  picture.AddDirtyRect({0, 0, 1, 1});
  EXPECT_EQ(picture.GetDirtyCount(), 0U);
  CPixelScreenSDL::FullFlip() = true;
}

}  // namespace vask::test
