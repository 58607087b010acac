#include "gfx/font.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <tuple>
#include <vector>

#include "gfx/fontalign.h"
#include "gfx/ogffontloader.h"
#include "gfx/textsprite.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace vask {
namespace {

using Rect = CRect<int>;

class FontTest : public ::testing::Test {
 protected:
  // The red of the i-th cell, of three columns and two rows, is 30 + 40 i.
  FontTest() {
    Gfx::ImagePtr sheet(Gfx::NewBuffer(48, 16));
    for (int i = 0; i < 48 * 16; ++i) {
      const int cell = i / 48 / 8 * 3 + i % 48 / 16;
      sheet->PutPixel(i % 48, i / 48, CColor(static_cast<std::uint8_t>(30 + 40 * cell), 100, 200));
    }
    sheet->SaveToFile("sheet.bmp");
  }

  static std::unique_ptr<CFont> FontOf(const std::string& content) {
    std::ofstream("a.ogf", std::ios::binary) << content;
    return LoadFont("a.ogf");
  }
  // Red of the pixels of a text that is drawn at the origin of an empty picture.
  static std::vector<int> Reds(CFont& font, const std::string& text, const std::vector<int>& xs) {
    Gfx::ImagePtr target(Gfx::NewBuffer(100, 20));
    font.WriteLine(target.get(), text, 0, 0);
    std::vector<int> reds(xs.size());
    std::transform(xs.begin(), xs.end(), reds.begin(),
                   [&](int x) { return target->GetPixel(x, 1).r; });
    return reds;
  }

  test::CTestScreen myScreen{64, 64};
  const std::string myFont = "OGF;3;2;16;8;6;888;ab;c d;643200401699;sheet.bmp";
};

TEST_F(FontTest, GlyphsAreCutFromTheirCells) {
  using Ints = std::vector<int>;
  for (const char* lineEnd : {"", "\n", "\r\n", "\nOGF;more"}) {
    const auto font = FontOf(myFont + lineEnd);
    Ints widths;
    for (const unsigned char character : std::string("ab;c dx")) {
      widths.push_back(font->GetCharWidth(character));
    }
    EXPECT_EQ(widths, (Ints{16, 8, 0, 10, 4, 24, 0})) << lineEnd;
    EXPECT_EQ(font->GetTextWidth("abc dx"), 62);
    EXPECT_EQ(font->GetLineHeight(), 8);
    // "x" has no glyph and takes no room; the wide "d" ends at the edge of the sheet.
    const std::unique_ptr<CFont> clone(font->Clone());
    EXPECT_EQ(Reds(*clone, "bxcd", {0, 7, 8, 17, 18, 33, 34}),
              (Ints{70, 70, 150, 150, 230, 230, 0}));
  }
  const auto scaled = FontOf("OGF;3;2;8;4;6;888;ab;c d;646464646464;sheet.bmp");
  EXPECT_EQ(scaled->GetSheet()->GetWidth(), 24);
  EXPECT_EQ(Reds(*scaled, "ac", {1, 9}), (Ints{30, 150}));
  const auto crowded = FontOf("OGF;3;2;16;8;8;888;ABCDEFGH;6464646464646464;sheet.bmp");
  EXPECT_EQ(Reds(*crowded, "FG", {0, 16}), (Ints{230, 0})) << "more characters than cells";
  test::CLogCapture log;
  const auto tinted = FontOf("OGF;3;2;16;8;1;940;a;64;sheet.bmp");
  EXPECT_TRUE(log.Has("Red: 1.125Green: 0.5Blue: 0"));
  const CColor color = tinted->GetSheet()->GetPixel(47, 15);
  EXPECT_EQ((Ints{color.r, color.g, color.b, color.a}), (Ints{255, 50, 0, 255}));
  log.Clear();
  EXPECT_EQ(FontOf(myFont)->GetSheet()->GetPixel(47, 15).g, 100) << "only a copy is tinted";
  EXPECT_EQ(log.Text(), "");
}

TEST_F(FontTest, ABadFileIsReportedInOneLineAndDrawsNothing) {
  const std::pair<std::string, std::string> cases[] = {
      // clang-format off
      {"", "Could not open ogf file: a.ogf for loading"},
      {"\n" + myFont, "Could not open ogf file: a.ogf for loading"},
      {"ogf" + myFont.substr(3), "a.ogf is probably not a ogf file"},
      {"OGF;3;2;16;8;7;888;ab;c d;6432004016;x", "a.ogfError, the char count (7) and numbers of charachters (17) don't match"},
      {"OGF;3;2;16;8;1;888;ab;6464;sheet.bmp", "a.ogfError, the char count (1) and numbers of charachters (2) don't match"},
      {"OGF;3;2;16;8;2;888;ab;646;sheet.bmp", "a.ogf Error, the number of character width's ( 3) doesn't match the number of characters (2) times two"},
      {"OGF;3;2;16;8;2;888;ab;6464;none.bmp", "Could not load imagenone.bmp"},
      {"OGF;3;2;16;8;2;88;ab;6464;sheet.bmp", "tint"},
      {"OGF;0;2;16;8;2;888;ab;6464;sheet.bmp", "no valid size"},
      {"OGF;3;-2;16;8;2;888;ab;6464;sheet.bmp", "no valid size"},
      {"OGF;3;2;;8;2;888;ab;6464;sheet.bmp", "no valid size"},
      {"OGF;3;2;16;8;0;888;;;sheet.bmp", "no valid size"},
      {"OGF;1;1;4097;8;2;888;ab;6464;sheet.bmp", "no valid size"},
      {"OGF;65536;65536;65536;65536;2;888;ab;6464;sheet.bmp", "no valid size"},
      {std::string(300000, 'O'), "not a ogf file"},
      // clang-format on
  };
  Gfx::ImagePtr target(Gfx::NewBuffer(10, 10));
  for (const auto& [content, message] : cases) {
    test::CLogCapture log;
    const auto font = FontOf(content);
    EXPECT_FALSE(font->HasGlyphs());
    EXPECT_EQ(font->Write(target.get(), "ab", {0, 0, 10, 10}).x, 0);
    font->SetAlign(IFontAlign::kJustify);
    font->Write(target.get(), "a b", {0, 0, -1, 10});  // must come to an end
    EXPECT_TRUE(log.Has(message)) << log.Text();
    EXPECT_EQ(log.Lines().size(), 1U) << content;
  }
}

TEST_F(FontTest, TextIsLaidOutByTheAlignment) {
  struct CNotingFont : CFont {  // notes every line that it is asked to draw
    CPenPosition WriteLine(IPixel* target, const std::string& text, int x, int y) override {
      lines += text + "@" + std::to_string(x) + "," + std::to_string(y) + "|";
      return CFont::WriteLine(target, text, x, y);
    }
    std::string lines;
  } font;
  // Widths: "x" 10, "i" 1, blank 4; lines are 12 high.
  std::ofstream("a.ogf") << "OGF;3;1;10;12;3;888;xi ;640726;sheet.bmp";
  COgfFontLoader().Load(font, "a.ogf");
  const struct {
    int align;
    CRect<int> rect;
    std::string text, lines;
    int endY;
  } layouts[] = {
      // clang-format off
      {0, {5, 7, 30, 99}, "xx xxx\nx", "xx @5,7|xxx@5,19|x@5,31|", 43},
      {0, {0, 0, 20, 99}, "xx \nxx ", "xx @0,0|xx @0,12|", 24},
      {0, {0, 0, 99, 99}, "x\n\nx\n", "x@0,0|@0,12|x@0,24|", 36},
      {0, {0, 0, 99, 99}, "x\tx", "x    x@0,0|", 12},
      {0, {0, 0, 99, 13}, "x\nx\nx", "x@0,0|x@0,12|", 24},
      {0, {0, 3, 99, 0}, "x", "", 3},
      {0, {0, 3, 99, 99}, "", "", 3},
      {0, {0, 0, 50, 30}, "x xxxxxx x", "x @0,0|", 36},
      {1, {0, 0, 200, 99}, "xxxxxxxxxiiiiiiiii", "xxxxxxxxxiiiiiiiii@50,0|", 12},
      {1, {8, 0, 24, 99}, "xi", "xi@14,0|", 12},
      {2, {0, 0, 50, 99}, "xx xxx\nx", "xx @26,0|xxx@20,12|x@40,24|", 36},
      {3, {0, 0, 51, 99}, "x x x xx", "x@0,0|x@20,0|x@41,0|xx@0,12|", 24},
      {3, {0, 0, 44, 99}, "xxxx xx", "xxxx@0,0|xx@0,12|", 24},
      {3, {0, 0, 50, 99}, "x x\nx", "x x@0,0|x@0,12|", 24},
      {-1, {5, 7, 10, 10}, "xx xx", "xx xx@5,7|", 19},
      // clang-format on
  };
  Gfx::ImagePtr target(Gfx::NewBuffer(300, 100));
  test::CLogCapture log;
  for (const auto& layout : layouts) {
    font.lines.clear();
    font.SetAlign(layout.align);
    EXPECT_EQ(font.Write(target.get(), layout.text, layout.rect).y, layout.endY) << layout.text;
    EXPECT_EQ(font.lines, layout.lines) << "alignment " << layout.align;
    // A log view measures without a picture, and must come to the same height.
    for (IPixel* nothing : {static_cast<IPixel*>(nullptr), Gfx::NullImage()}) {
      EXPECT_EQ(font.Write(nothing, layout.text, layout.rect).y, layout.endY) << layout.text;
    }
  }
  EXPECT_EQ(log.Text(), "");
}

// The box that encloses what is drawn.
Rect Drawn(const CSprite& sprite) {
  const IPixel& image = *sprite.GetImage();
  int left = image.GetWidth(), top = image.GetHeight(), right = 0, bottom = 0;
  for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i) {
    const int x = i % image.GetWidth();
    const int y = i / image.GetWidth();
    if (image.GetPixel(x, y).a != 0) {
      left = std::min(left, x), top = std::min(top, y);
      right = std::max(right, x + 1), bottom = std::max(bottom, y + 1);
    }
  }
  return right == 0 ? Rect{} : Rect{left, top, right - left, bottom - top};
}

TEST_F(FontTest, TextSpriteDrawsAgainWithEachTextAndSize) {
  CTextSprite sprite(LoadFont("system"), 60, 20);
  for (const int length : {4, 1, 0}) {
    sprite.SetText(std::string(static_cast<std::size_t>(length), 'H'));
    EXPECT_EQ(Drawn(sprite).w, 6 * length);
  }
  sprite.SetRotation(90.0F);
  sprite.SetText("HHHH");
  EXPECT_GE(Drawn(sprite).h, 22) << "the copy that is shown is made again";

  CTextSprite list(LoadFont("system"), 0, 0);
  list.GetFont()->SetAlign(IFontAlign::kRight);
  list.SetText("HH HH");
  // clang-format off
  for (const auto& [x, w, h] : {std::tuple{70, 100, 12}, {20, 50, 40}, {2, 20, 40}, {0, 0, 0}, {70, 100, 12}}) {
    // clang-format on
    list.SetSize(w, h);
    EXPECT_EQ(list.GetRect(), (Rect{0, 0, w, h}));
    EXPECT_EQ(Drawn(list).x, x) << w;
  }
}

TEST_F(FontTest, TextSpriteFileGivesSizePlaceTextAndBackdropAndIsWrittenBack) {
  Gfx::ImagePtr(test::NewPicture(40, 10, {10, 20, 30}))->SaveToFile("back.bmp");
  const std::string size = "<ImageRect x=\"3\" y=\"4\" w=\"50\" h=\"30\"/><Alpha>200</Alpha>";
  const std::string text = "<Text>HH</Text>";
  const std::string font = "<FontFile>system</FontFile>";
  const std::pair<std::string, Rect> cases[] = {
      // clang-format off
      {size + text + font, {0, 2, 12, 8}},
      {size + "<FontRect x=\"20\" y=\"10\" w=\"5\" h=\"5\"/>" + text + font, {20, 12, 12, 8}},
      {size + "<FontStartPosition x=\"7\" y=\"5\"/><FontRect x=\"20\"/>" + text + font, {7, 7, 12, 8}},
      {size + text, {}},
      {size + text + "<BackdropFile>back.bmp</BackdropFile>" + font, {0, 0, 40, 10}},
      {size + text + "<BackdropFile>missing.bmp</BackdropFile>" + font, {0, 2, 12, 8}},
      {"<ImageRect x=\"3\" w=\"-5\" h=\"2147483647\"/>" + text + font, {}},
      {size + "<FontRect x=\"2147483647\" w=\"-2147483648\"/>" + text + font, {}},
      {"", {}},
      // clang-format on
  };
  for (const auto& [elements, drawn] : cases) {
    std::ofstream("text.xml") << "<Sprite>" << elements << "</Sprite>";
    for (int round = 0; round < 2; ++round) {
      CTextSprite sprite;
      EXPECT_TRUE(LoadXml(sprite, "text.xml"));
      EXPECT_EQ(Drawn(sprite), drawn) << elements << round;
      if (elements.starts_with(size)) {
        EXPECT_EQ(sprite.GetRect(), (Rect{3, 4, 50, 30})) << elements;
        EXPECT_EQ(sprite.GetAlpha(), 200);
      }
      EXPECT_TRUE(SaveXml(sprite, "text.xml"));
    }
  }
}

}  // namespace
}  // namespace vask
