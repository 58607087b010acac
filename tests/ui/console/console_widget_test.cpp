#include "gfx/text/fontalign.h"
#include "gfx/text/systemfontloader.h"
#include "support/uitest.h"
#include "ui/console/consolewidget.h"
#include "ui/console/loglistenerforconsole.h"

namespace vask::ui {
namespace {

// The system font, 6 by 12 pixels.
struct CPlainFont : CFont {
  CPlainFont() {
    CSystemFontLoader().Load(*this, "");
    SetAlign(IFontAlign::kLeft);
  }
};

// Whether the picture shows the two lines from a height on, and nothing else.
bool Shows(const IPixel& picture, const std::string& first, const std::string& second, int y = -4) {
  CPlainFont font;
  const Gfx::ImagePtr expected(Gfx::NewBuffer(picture.GetWidth(), picture.GetHeight()));
  font.WriteLine(&*expected, first, 0, y);
  font.WriteLine(&*expected, second, 0, y + 12);
  return test::PixelsOf(picture) == test::PixelsOf(*expected);
}

int HeightOf(const std::string& line, int width) {
  CPlainFont font;
  CLogListenerForConsole log;
  log.SetFont(&font);
  log.OnLog("", kLogBlockBegin);
  log.OnLog(line, kLogDebug);
  log.Draw(nullptr, {0, 0, width, 20}, false);
  return log.GetTextHeight();
}

TEST(LogView, BreaksAndCutsLongWords) {
  const test::CTestScreen screen(80, 60);
  EXPECT_EQ(HeightOf("elevenchars\n", 60), 24) << "a word that is too long";
  EXPECT_EQ(HeightOf("a_word_of_25_characters__\n", 60), 36);
  EXPECT_EQ(HeightOf("ab elevenchars c", 60), 36);
  EXPECT_EQ(HeightOf(std::string(400, 'a'), 60), 204) << "cut";
}

TEST(LogView, KnowsItsHeightAtEachWidth) {
  const test::CTestScreen screen(80, 60);
  CPlainFont font;
  CLogListenerForConsole log;
  log.SetFont(&font);
  const auto lines = {"a\tb c\n", "", "ab\nc\n", "one two six\n", "x ", "a b", "a \n"};
  std::ranges::for_each(lines, [&](const char* line) { log.OnLog(line, kLogNormal); });
  for (const int width : {36, 90, 42, 60, 61, 37, 200, 36}) {
    int expected = 0;
    for (const char* line : lines) {
      expected += std::max(font.Write(nullptr, line, {0, 0, width, 200}).y, 1);
    }
    log.Draw(nullptr, {0, 0, width, 20}, false);
    EXPECT_EQ(log.GetTextHeight(), expected) << width;
  }
  struct CTallFont : CPlainFont {
    int GetLineHeight() const override { return 20; }
  } tall;
  const int before = log.GetTextHeight();
  log.SetLevelFont(kLogNormal, &tall);
  EXPECT_GT(log.GetTextHeight(), before);
}

struct ConsoleWidget : UiTest {
  void RunFor(unsigned milliseconds) {
    myClock.Advance(milliseconds);
    CFakeThread::RunThreads(0);
    CScreenLayer::GetSingletonPtr()->DrawFrame();
  }
  const IPixel& Picture() const { return *myWidget->GetSprite()->GetImage(); }

  CWidget myParent{Desktop(), {0, 0, 60, 40}, false, "", {}};
  CConsoleWidget* myWidget = new CConsoleWidget(&myParent, "");  // shows two lines
};

TEST_F(ConsoleWidget, ShowsTheEndOfTheLogEachTenthOfASecond) {
  RunFor(0);
  Log() << "1\n2\n";
  RunFor(99);
  EXPECT_FALSE(Shows(Picture(), "1", "2"));
  RunFor(1);
  EXPECT_TRUE(Shows(Picture(), "1", "2"));
  Log() << "one two three\n";
  EXPECT_FALSE(CScreenLayer::GetSingletonPtr()->GetChildren().empty()) << "is on the screen";
  myParent.Resize(30, 40);
  EXPECT_TRUE(Shows(Picture(), "two", "three")) << "at once, with other line breaks";
}

TEST_F(ConsoleWidget, TheWheelScrollsThreeLinesAndAPageAllButOne) {
  RunFor(0);
  for (int line = 1; line <= 9; ++line) {
    Log() << line << "\n";
  }
  RunFor(100);
  Press({5, 5}, kWheelUp);
  RunFor(0);
  EXPECT_TRUE(Shows(Picture(), "5", "6"));
  Press({5, 5}, kWheelDown);
  RunFor(0);
  EXPECT_TRUE(Shows(Picture(), "8", "9"));
  myWidget->ScrollPages(-2);
  EXPECT_TRUE(Shows(Picture(), "6", "7"));
  Log() << "10\n";
  RunFor(100);
  EXPECT_TRUE(Shows(Picture(), "6", "7")) << "stays there";
  myWidget->ScrollPages(9);
  EXPECT_TRUE(Shows(Picture(), "9", "10"));
}

}  // namespace
}  // namespace vask::ui
