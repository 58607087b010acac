#include "game/scoreboard.h"

#include "game/game_support.h"

namespace brumble {
namespace {

class ScoreBoardTest : public test::GameTest {
 protected:
  CScoreBoard board;
};

TEST_F(ScoreBoardTest, RunsInStagesAndNeverOvershoots) {
  const struct {
    int start, delta, afterFirst;
  } cases[] = {
      {500, 7000, 1611}, {0, 40000, 11111}, {0, 30000, 1111},  {0, 5000, 111},
      {0, 100, 11},      {0, 1, 1},         {0, -7000, -1111}, {-2147483647, 9, -2147483646},
  };
  for (const auto& c : cases) {
    board.Set(c.start);
    EXPECT_EQ(board.Add(c.delta), c.delta);
    board.Run();
    EXPECT_EQ(board.GetSprite().GetText(), std::to_string(c.afterFirst));
    for (int i = 0, gap = std::abs(c.delta); i < 400; ++i) {
      board.Run();
      const int newGap = std::abs(board.GetTarget() - board.GetShown());
      EXPECT_LE(newGap, gap);
      gap = newGap;
    }
    EXPECT_EQ(board.GetShown(), c.start + c.delta);
  }
}

TEST_F(ScoreBoardTest, CountsEvery30Milliseconds) {
  board.Add(-3);
  for (const int expected : {-1, -2, -3}) {
    vask::CFakeThread::RunThreads(0);
    clock.Advance(29);
    vask::CFakeThread::RunThreads(0);
    EXPECT_EQ(board.GetShown(), expected);
    clock.Advance(1);
  }
}

TEST_F(ScoreBoardTest, FloatingTextStartsCentredRisesFadesAndGoes) {
  const std::unique_ptr<vask::CFont> font = vask::LoadFont("data/gfx/numbers.ogf");
  const int w = font->GetTextWidth("+20");
  const int h = font->GetLineHeight();
  CScoreBoard::ShowFloatingText({50, -h}, "+20");
  EXPECT_TRUE(test::Floating().empty()) << "above the screen";
  CScoreBoard::ShowFloatingText({50, 150}, "+20");
  ASSERT_EQ(test::Floating().size(), 1U);
  const vask::CTextSprite& text = *test::Floating().front();
  EXPECT_EQ(text.GetRect(), (vask::CRect<int>{50 - w / 2, 150 - h / 2, w, h}));
  EXPECT_EQ(text.GetAlpha(), 0);
  Pass(700);  // half of the fade, whose curve is cut off at 1
  Pass(0);    // only every second call changes the alpha
  EXPECT_EQ(text.GetAlpha(), 255);
  Pass(799);
  EXPECT_NEAR(text.GetY(), 150 - h / 2 - 150, 1);
  vask::CFakeThread::RunThreads(0);
  EXPECT_EQ(test::Floating().size(), 1U);
  Pass(31);
  vask::CFakeThread::RunThreads(0);
  EXPECT_TRUE(test::Floating().empty());

  std::filesystem::remove("data");
  CScoreBoard::ShowFloatingText({50, 150}, "+20");
  EXPECT_TRUE(test::Floating().empty()) << "no font";
}

}  // namespace
}  // namespace brumble
