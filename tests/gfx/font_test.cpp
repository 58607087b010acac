#include "gfx/font.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "gfx/fontalign.h"
#include "gfx/ogffontloader.h"
#include "support/logcapture.h"
#include "support/testpicture.h"

namespace vask {
namespace {

constexpr char kFile[] = "font_test.ogf";
constexpr char kSheet[] = "font_test_sheet.bmp";
constexpr int kCellWidth = 16;
constexpr int kCellHeight = 8;

// The colour of the i-th cell of the sheet: three columns and two rows.
CColor CellColor(int i) { return {static_cast<std::uint8_t>(40 * i + 30), 100, 200}; }

class FontTest : public ::testing::Test {
 protected:
  FontTest() {
    Gfx::ImagePtr sheet(Gfx::NewBuffer(3 * kCellWidth, 2 * kCellHeight));
    for (int y = 0; y < sheet->GetHeight(); ++y) {
      for (int x = 0; x < sheet->GetWidth(); ++x) {
        sheet->PutPixel(x, y, CellColor(y / kCellHeight * 3 + x / kCellWidth));
      }
    }
    sheet->SaveToFile(kSheet);
  }

  static std::unique_ptr<CFont> FontOf(const std::string& content) {
    std::ofstream(kFile, std::ios::binary) << content;
    return LoadFont(kFile);
  }

  // Red of the pixels of a text that is drawn at the origin of an empty picture.
  static std::vector<int> Reds(CFont& font, const std::string& text, const std::vector<int>& xs,
                               int y = 0) {
    Gfx::ImagePtr target(Gfx::NewBuffer(100, 20));
    font.WriteLine(target.get(), text, 0, 0);
    std::vector<int> reds;
    for (const int x : xs) {
      reds.push_back(target->GetPixel(x, y).r);
    }
    return reds;
  }

  test::CTestScreen myScreen{64, 64};
  const std::string myFont = "OGF;3;2;16;8;6;888;ab;c d;643200401699;" + std::string(kSheet);
};

TEST_F(FontTest, GlyphsAreCutFromTheirCells) {
  for (const char* lineEnd : {"", "\n", "\r\n", "\nOGF;more"}) {
    const auto font = FontOf(myFont + lineEnd);
    std::vector<int> widths;
    for (const unsigned char character : std::string("ab;c dx")) {
      widths.push_back(font->GetCharWidth(character));
    }
    EXPECT_EQ(widths, (std::vector<int>{16, 8, 0, 10, 4, 24, 0})) << lineEnd;
    EXPECT_EQ(font->GetTextWidth("abc dx"), 62);
    EXPECT_EQ(font->GetSpaceWidth(), 4);
    EXPECT_EQ(font->GetLineHeight(), 8);
    // "x" has no glyph and takes no room; the wide "d" ends at the edge of the sheet.
    EXPECT_EQ(Reds(*font, "bxcd", {0, 7, 8, 17, 18, 33, 34}),
              (std::vector<int>{70, 70, 150, 150, 230, 230, 0}));
    EXPECT_EQ(Reds(*font, "a", {0}, kCellHeight), (std::vector<int>{0}));
  }
}

TEST_F(FontTest, ASheetOfAnotherSizeIsScaled) {
  const auto font = FontOf("OGF;3;2;8;4;6;888;ab;c d;646464646464;" + std::string(kSheet));
  EXPECT_EQ(font->GetSheet()->GetWidth(), 24);
  EXPECT_EQ(font->GetSheet()->GetHeight(), 8);
  EXPECT_EQ(Reds(*font, "ac", {1, 9}, 1), (std::vector<int>{30, 150}));
}

TEST_F(FontTest, TheTintMultipliesACopyOfTheSheet) {
  test::CLogCapture log;
  const auto plain = FontOf(myFont);
  EXPECT_FALSE(log.Has("Red"));
  std::string tinted = myFont;
  tinted.replace(tinted.find("888"), 3, "940");
  const auto font = FontOf(tinted);
  EXPECT_TRUE(log.Has("Red: 1.125Green: 0.5Blue: 0"));
  const CColor color = font->GetSheet()->GetPixel(47, 15);
  EXPECT_EQ(std::vector<int>({color.r, color.g, color.b, color.a}),
            std::vector<int>({255, 50, 0, 255}));
  EXPECT_EQ(plain->GetSheet()->GetPixel(47, 15).r, 230);
  const std::unique_ptr<CFont> clone(font->Clone());
  EXPECT_EQ(Reds(*clone, "a", {0}), (std::vector<int>{33}));
}

TEST_F(FontTest, ABadFileIsReportedInOneLineAndDrawsNothing) {
  const std::string sheet = kSheet;
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "Could not open ogf file: font_test.ogf for loading"},
      {"\n" + myFont, "Could not open ogf file: font_test.ogf for loading"},
      {"ogf" + myFont.substr(3), "font_test.ogf is probably not a ogf file"},
      {"OGF;3;2;16;8;7;888;ab;c d;6432004016;x",
       "font_test.ogfError, the char count (7) and numbers of charachters (17) don't match"},
      {"OGF;3;2;16;8;1;888;ab;6464;" + sheet,
       "font_test.ogfError, the char count (1) and numbers of charachters (2) don't match"},
      {"OGF;3;2;16;8;2;888;ab;646;" + sheet,
       "font_test.ogf Error, the number of character width's ( 3) doesn't match the number of "
       "characters (2) times two"},
      {"OGF;3;2;16;8;2;888;ab;6464;missing.bmp", "Could not load imagemissing.bmp"},
      {"OGF;3;2;16;8;2;88;ab;6464;" + sheet, "tint"},
      {"OGF;0;2;16;8;2;888;ab;6464;" + sheet, "no valid size"},
      {"OGF;3;-2;16;8;2;888;ab;6464;" + sheet, "no valid size"},
      {"OGF;3;2;;8;2;888;ab;6464;" + sheet, "no valid size"},
      {"OGF;3;2;16;8;0;888;;;" + sheet, "no valid size"},
      {"OGF;1;1;4097;8;2;888;ab;6464;" + sheet, "no valid size"},
      {"OGF;65536;65536;65536;65536;2;888;ab;6464;" + sheet, "no valid size"},
  };
  Gfx::ImagePtr target(Gfx::NewBuffer(10, 10));
  for (const auto& [content, message] : cases) {
    test::CLogCapture log;
    const auto font = FontOf(content);
    ASSERT_EQ(log.Lines().size(), 1U) << content << "\n" << log.Text();
    EXPECT_TRUE(log.Has(message)) << log.Text();
    EXPECT_FALSE(font->HasGlyphs());
    EXPECT_EQ(font->Write(target.get(), "ab", {0, 0, 10, 10}).x, 0);
    font->SetAlign(IFontAlign::kJustify);
    font->Write(target.get(), "a b", {0, 0, -1, 10});  // must come to an end
    EXPECT_EQ(log.Lines().size(), 1U);
  }
}

TEST_F(FontTest, DamagedFilesStayInsideMemory) {
  std::mt19937 random(7);
  Gfx::ImagePtr target(Gfx::NewBuffer(40, 40));
  const std::string valid = myFont;
  for (std::size_t i = 0; i < 4 * valid.size(); ++i) {
    std::string content = valid.substr(0, i < valid.size() ? i : std::string::npos);
    for (std::size_t hit = 0; i >= valid.size() && hit < 1 + i % 4; ++hit) {
      content[random() % content.size()] =
          static_cast<char>(i % 2 == 0 ? random() : '0' + random() % 10);
    }
    const auto font = FontOf(content);
    for (const int align : {-1, 0, 1, 2, 3}) {
      font->SetAlign(align);
      font->Write(target.get(), "ab; c d\td\xFF\n", {-3, -3, 30, 30});
    }
  }
  EXPECT_FALSE(FontOf(std::string(300000, 'O'))->HasGlyphs());
  // More characters than cells, in a file that is right otherwise.
  EXPECT_EQ(Reds(*FontOf("OGF;3;2;16;8;8;888;ABCDEFGH;6464646464646464;" + std::string(kSheet)),
                 "FG", {0, 16}),
            (std::vector<int>{230, 0}));
}

// Notes every line that it is asked to draw.
class CNotingFont : public CFont {
 public:
  CPenPosition WriteLine(IPixel* target, const std::string& text, int x, int y) override {
    lines.push_back(text + "@" + std::to_string(x) + "," + std::to_string(y));
    return CFont::WriteLine(target, text, x, y);
  }
  std::vector<std::string> lines;
};

struct SLayoutCase {
  int align;
  CRect<int> rect;
  std::string text;
  std::vector<std::string> lines;
  int endY;
};

// Widths: "x" 10, "i" 1, blank 4; lines are 12 high.
const std::vector<SLayoutCase> kLayouts = {
    {0, {5, 7, 30, 99}, "xx xxx\nx", {"xx @5,7", "xxx@5,19", "x@5,31"}, 43},
    {0, {0, 0, 99, 99}, "x\n\nx\n", {"x@0,0", "@0,12", "x@0,24"}, 36},
    {0, {0, 0, 99, 99}, "x\tx", {"x    x@0,0"}, 12},
    {0, {0, 0, 99, 13}, "x\nx\nx", {"x@0,0", "x@0,12"}, 24},
    {0, {0, 3, 99, 0}, "x", {}, 3},
    {0, {0, 3, 99, 99}, "", {}, 3},
    {0, {0, 0, 50, 30}, "x xxxxxx x", {"x @0,0"}, 36},
    {1, {0, 0, 200, 99}, "xxxxxxxxxiiiiiiiii", {"xxxxxxxxxiiiiiiiii@50,0"}, 12},
    {1, {8, 0, 24, 99}, "xi", {"xi@14,0"}, 12},
    {2, {0, 0, 50, 99}, "xx xxx\nx", {"xx @26,0", "xxx@20,12", "x@40,24"}, 36},
    {3, {0, 0, 50, 99}, "x x x xx", {"x@0,0", "x@20,0", "x@40,0", "xx@0,12"}, 24},
    {3, {0, 0, 51, 99}, "x x x xx", {"x@0,0", "x@20,0", "x@41,0", "xx@0,12"}, 24},
    {3, {0, 0, 44, 99}, "xxxx xx", {"xxxx@0,0", "xx@0,12"}, 24},
    {3, {0, 0, 50, 99}, "x x\nx", {"x x@0,0", "x@0,12"}, 24},
    {-1, {5, 7, 10, 10}, "xx xx", {"xx xx@5,7"}, 19},
};

TEST_F(FontTest, TextIsLaidOutByTheAlignment) {
  std::ofstream(kFile) << "OGF;3;1;10;12;3;888;xi ;640726;" << kSheet;
  CNotingFont font;
  COgfFontLoader().Load(font, kFile);
  ASSERT_TRUE(font.HasGlyphs());
  Gfx::ImagePtr target(Gfx::NewBuffer(300, 100));
  test::CLogCapture log;
  for (const SLayoutCase& layout : kLayouts) {
    font.lines.clear();
    font.SetAlign(layout.align);
    EXPECT_EQ(font.Write(target.get(), layout.text, layout.rect).y, layout.endY) << layout.text;
    EXPECT_EQ(font.lines, layout.lines) << "alignment " << layout.align;
    // A log view measures without a picture, and must come to the same height.
    for (IPixel* nothing : {static_cast<IPixel*>(nullptr), Gfx::NullImage()}) {
      EXPECT_EQ(font.Write(nothing, layout.text, layout.rect).y, layout.endY) << layout.text;
    }
  }
  EXPECT_TRUE(log.Lines().empty()) << log.Text();
}

TEST_F(FontTest, TheSystemFontHasEveryCharacterAndFitsTheConsole) {
  const auto font = LoadFont("anything else");
  font->SetAlign(IFontAlign::kLeft);
  EXPECT_EQ(font->GetLineHeight(), 12);
  EXPECT_EQ(font->Write(nullptr, std::string(62, '-') + "\n", {0, 0, 396, 200}).y, 12);
  std::vector<std::vector<std::uint32_t>> glyphs;
  for (int character = ' '; character <= 127; ++character) {
    Gfx::ImagePtr target(Gfx::NewBuffer(6, 12));
    font->WriteLine(target.get(), std::string(1, static_cast<char>(character)), 0, 0);
    glyphs.push_back(test::CTestScreen::PixelsOf(dynamic_cast<CPixelSDL&>(*target)));
  }
  std::sort(glyphs.begin(), glyphs.end());
  EXPECT_EQ(std::unique(glyphs.begin(), glyphs.end()), glyphs.end()) << "two look the same";
}

}  // namespace
}  // namespace vask
