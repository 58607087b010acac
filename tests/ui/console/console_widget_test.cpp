#include "gfx/text/fontalign.h"
#include "gfx/text/systemfontloader.h"
#include "support/fakeclock.h"
#include "support/testpicture.h"
#include "ui/console/consolewidget.h"
#include "ui/console/loglistenerforconsole.h"

#include <gtest/gtest.h>

namespace vask::ui {

// The system font, 6 by 12. Writing with it onto a picture makes a log longer, once.
struct CTalkingFont : CFont {
  CTalkingFont() { CSystemFontLoader().Load(*this, ""), CFont::SetAlign(0); }
  SPenPosition Write(IPixel* target, const std::string& text, const CRect<int>& rect) override {
    log != nullptr&& target != nullptr ? std::exchange(log, nullptr)->OnLog("late\n", 1) : void();
    return CFont::Write(target, text, rect);
  }
  CLogListenerForConsole* log = nullptr;
};

// Whether a picture shows the two lines from a height on, and nothing else.
bool Shows(const IPixel& picture, const std::string& first, const std::string& second, int y) {
  CTalkingFont font;
  const Gfx::ImagePtr expected(Gfx::NewBuffer(picture.GetWidth(), picture.GetHeight()));
  font.WriteLine(&*expected, first, 0, y), font.WriteLine(&*expected, second, 0, y + 12);
  return test::PixelsOf(picture) == test::PixelsOf(*expected);
}

TEST(LogView, MeasuresLinesAndPaintsWhatHasChanged) {
  const test::CTestScreen screen(80, 60);
  CTalkingFont font;
  // Lines, and their heights in views of 10 and 20 characters.
  // clang-format off
  const std::tuple<std::string, int, int> cases[] = {
      {"a\n", 12, 12}, {"\n", 12, 12}, {"one two three\n", 24, 12}, {"a\tb c de\n", 24, 12},
      {std::string(400, 'a') + "\n", 204, 204}, {"elevenchars\n", 24, 12}, {"ab elevenchars c", 36, 12}, {"a", 12, 12}};
  // clang-format on
  for (const auto& [line, narrow, wide] : cases) {
    CLogListenerForConsole log;
    log.OnLog("", kLogBlockBegin), log.OnLog(line, kLogDebug);
    EXPECT_EQ(log.GetTextHeight(), 1) << "no font";
    log.SetFont(&font);
    EXPECT_TRUE(log.Draw(nullptr, {0, 0, 60, 20}, false) && log.GetTextHeight() == narrow) << line;
    log.OnLog(line, kLogError);
    EXPECT_TRUE(log.Draw(nullptr, {0, 0, 120, 20}, false) && log.GetTextHeight() == 2 * wide);
  }
  const Gfx::ImagePtr picture(Gfx::NewBuffer(60, 20)), other(Gfx::NewBuffer(60, 20));
  CLogListenerForConsole log;
  log.SetFont(&font), log.OnLog("a\n", 1), log.OnLog("b\n", 1);
  font.log = &log;
  // What is logged, where the view begins then; whether it is painted, the height of the text.
  // clang-format off
  const std::tuple<const char*, int, bool, int> steps[] = {
      {"", 8, true, 36}, {"", 8, true, 36}, {"", 8, false, 36}, {"c\n", 16, true, 48}, {"d\n", 16, false, 60},
      {"", 40, true, 60}, {"e\n", 40, true, 72}, {"one two three\n", 76, true, 84}, {"", 76, true, 84}, {"", 4, true, 84}};
  // clang-format on
  for (const auto& [line, y, isPainted, height] : steps) {
    log.OnLog(line, *line == '\0' ? kLogBlockEnd : kLogNormal);
    y == 76 ? font.CFont::SetAlign(-1) : void();  // which breaks no lines
    EXPECT_EQ(log.Draw(&*picture, {0, y, 60, 20}, false), isPainted) << line << y;
    EXPECT_EQ(log.GetTextHeight(), height) << line;
  }
  EXPECT_TRUE(Shows(*picture, "a", "b", -4));
  EXPECT_TRUE(log.Draw(&*other, {0, 4, 60, 20}, false)) << "another view";
  font.CFont::SetAlign(IFontAlign::kLeft);
  log.OnLog("\televenchars\n", kLogNormal);
  log.Draw(&*picture, {0, log.GetTextHeight() - 20, 60, 20}, true);
  EXPECT_TRUE(Shows(*picture, "elevenchar", "s", -4)) << "a word that is broken at the edge";
}

TEST(LogView, ViewsOfDifferentWidthsKeepTheirOwnMeasureAndPlace) {
  test::CFakeClock clock;
  const test::CTestScreen screen(80, 60);
  CWidget wideParent(nullptr, {0, 0, 60, 44}, false, "", {});
  CWidget narrowParent(nullptr, {0, 0, 24, 44}, false, "", {});
  auto* const wide = new CConsoleWidget(&wideParent, "");
  auto* const narrow = new CConsoleWidget(&narrowParent, "");
  for (const char* line : {"a b c d 1\n", "a b c d 2\n", "a b c d 3\n"}) {
    *CLog::GetSingletonPtr() << line;
  }
  wide->ScrollLines(-1);
  narrow->ScrollLines(-1);
  for (int step = 0; step < 5; ++step) {
    *CLog::GetSingletonPtr() << "more\n";
    clock.Advance(100);
    CFakeThread::RunThreads(0);
    EXPECT_TRUE(Shows(*wide->GetSprite()->GetImage(), "a b c d 1", "a b c d 2", 0)) << step;
    EXPECT_TRUE(Shows(*narrow->GetSprite()->GetImage(), "a b ", "c d ", 0)) << step;
  }
}

TEST(LogView, WidgetShowsTheEndOfTheLogAndScrolls) {
  test::CFakeClock clock;
  const test::CTestScreen screen(80, 60);
  CWidget parent(nullptr, {0, 0, 60, 44}, false, "", {});
  auto* widget = new CConsoleWidget(&parent, "");  // shows two lines
  const CSprite& sprite = *widget->GetSprite();
  CScreenLayer::GetSingletonPtr()->DrawFrame();  // the first one logs a line
  *CLog::GetSingletonPtr() << "1\n";
  // Logs a number, waits, presses a button and turns pages; the last number that is shown then.
  // clang-format off
  const std::tuple<int, unsigned, int, int, int> steps[] = {
      {2, 0, 0, 0, 2}, {3, 99, 0, 0, 2}, {4, 1, 0, 0, 4}, {5, 0, 8, 0, 2}, {6, 100, 1, 0, 2}, {7, 0, 16, 0, 5},
      {8, 0, 0, -2, 3}, {9, 0, 0, 6, 9}, {10, 100, 0, 0, 10}};
  // clang-format on
  for (const auto& [number, time, button, pages, last] : steps) {
    *CLog::GetSingletonPtr() << number << "\n";
    clock.Advance(time), CFakeThread::RunThreads(0);
    CMouseEvent event(IEvent::kMouseButtonDown, {5, 5}, button, nullptr);
    parent.HandleEvent(event), pages != 0 ? widget->ScrollPages(pages) : void();
    EXPECT_EQ(sprite.GetDirtyState() == 0, number == 3 || number == 6) << "nothing new";
    CScreenLayer::GetSingletonPtr()->DrawFrame();
    EXPECT_TRUE(Shows(*sprite.GetImage(), std::to_string(last - 1), std::to_string(last), 0))
        << number;
  }
  CLogListenerForConsole& log = *CLogListenerForConsole::PeekSingletonPtr();
  const int height = log.GetTextHeight();
  delete new CConsoleWidget(&parent, "");
  *CLog::GetSingletonPtr() << "one two three\n";
  EXPECT_EQ(log.GetTextHeight(), height + 24) << "the other goes on";
  parent.Resize(30, 44);
  EXPECT_TRUE(Shows(*sprite.GetImage(), "two", "three", 0)) << "at once, with other line breaks";
  delete widget;
  EXPECT_LT(log.GetTextHeight(), height / 6) << "its font has gone";
}

}  // namespace vask::ui
