#include "gfx/text/font.h"

#include "gfx/text/ogffontloader.h"
#include "gfx/text/textsprite.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace vask {
namespace {

using Rect = CRect<int>;
using Ints = std::vector<int>;

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
  static Ints Reds(CFont& font, const std::string& text, Ints xs) {
    Gfx::ImagePtr target(Gfx::NewBuffer(100, 20));
    font.WriteLine(target.get(), text, 0, 0);
    std::ranges::transform(xs, xs.begin(), [&](int x) { return target->GetPixel(x, 1).r; });
    return xs;
  }
  // The box that encloses what is drawn.
  static Rect Drawn(const CSprite& sprite) {
    const IPixel& image = *sprite.GetImage();
    int left = image.GetWidth(), top = image.GetHeight(), right = 0, bottom = 0;
    for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i) {
      const int x = i % image.GetWidth(), y = i / image.GetWidth();
      if (image.GetPixel(x, y).a != 0) {
        left = std::min(left, x), top = std::min(top, y);
        right = std::max(right, x + 1), bottom = std::max(bottom, y + 1);
      }
    }
    return right == 0 ? Rect{} : Rect{left, top, right - left, bottom - top};
  }

  test::CTestScreen myScreen{64, 64};
  const std::string myFont = "OGF;3;2;16;8;6;888;ab;c d;643200401699;sheet.bmp";
};

TEST_F(FontTest, GlyphsAreCutFromTheirCells) {
  for (const char* lineEnd : {"", "\n", "\r\n", "\nOGF;more"}) {
    const auto font = FontOf(myFont + lineEnd);
    const Ints sizes = {font->GetTextWidth("a"), font->GetTextWidth(";"), font->GetTextWidth("c"),
                        font->GetTextWidth("b dx"), font->GetLineHeight()};
    EXPECT_EQ(sizes, (Ints{16, 0, 10, 36, 8})) << lineEnd;
    // "x" has no glyph and takes no room; the wide "d" ends at the edge of the sheet.
    EXPECT_EQ(Reds(*font, "bxcd", {0, 7, 8, 17, 18, 33, 34}),
              (Ints{70, 70, 150, 150, 230, 230, 0}));
  }
  const auto scaled = FontOf("OGF;3;2;8;4;6;888;ab;c d;646464646464;sheet.bmp");
  EXPECT_EQ(Reds(*scaled, "ac", {1, 9}), (Ints{30, 150}));
  const auto tinted = FontOf("OGF;3;2;16;8;1;940;a;64;sheet.bmp");
  const CColor color = tinted->GetSheet()->GetPixel(47, 15);
  EXPECT_EQ((Ints{color.r, color.g, color.b}), (Ints{255, 50, 0}));
  EXPECT_EQ(FontOf(myFont)->GetSheet()->GetPixel(47, 15).g, 100) << "only a copy is tinted";
}

TEST_F(FontTest, ABadFileIsReportedInOneLineAndDrawsNothing) {
  const std::pair<std::string, std::string> cases[] = {
      // clang-format off
      {"", "Could not open ogf file: a.ogf for loading"}, {"ogf" + myFont.substr(3), "a.ogf is probably not a ogf file"},
      {"OGF;3;2;16;8;7;888;ab;c d;6432004016;x", "a.ogfError, the char count (7) and numbers of charachters (17) don't match"},
      {"OGF;3;2;16;8;2;888;ab;646;sheet.bmp", "a.ogf Error, the number of character width's ( 3) doesn't match the number of characters (2) times two"},
      {"OGF;3;2;16;8;2;888;ab;6464;none.bmp", "Could not load imagenone.bmp"},
      {"OGF;3;2;16;8;2;88;ab;6464;sheet.bmp", "tint"}, {std::string(300000, 'O'), "not a ogf file"},
      {"OGF;0;2;16;8;2;888;ab;6464;sheet.bmp", "no valid size"}, {"OGF;3;2;16;8;0;888;;;sheet.bmp", "no valid size"},
      {"OGF;65536;65536;65536;65536;2;888;ab;6464;sheet.bmp", "no valid size"}};
  // clang-format on
  for (const auto& [content, message] : cases) {
    const test::CLogCapture log;
    const auto font = FontOf(content);
    EXPECT_EQ(Reds(*font, "ab", {0}), Ints{0});
    font->SetAlign(3);
    font->Write(nullptr, "a b", {0, 0, -1, 10});  // must come to an end
    EXPECT_TRUE(log.Has(message)) << log.Text();
    EXPECT_EQ(log.Lines().size(), 1U) << content;
  }
}

TEST_F(FontTest, TextIsLaidOutByTheAlignment) {
  struct CNotingFont : CFont {  // notes every line that it is asked to draw
    SPenPosition WriteLine(IPixel* target, const std::string& text, int x, int y) override {
      lines += text + "@" + std::to_string(x) + "," + std::to_string(y) + "|";
      return CFont::WriteLine(target, text, x, y);
    }
    std::string lines;
  } font;
  // Widths: "x" 10, "i" 1, blank 4; lines are 12 high.
  std::ofstream("a.ogf") << "OGF;3;1;10;12;3;888;xi ;640726;sheet.bmp";
  COgfFontLoader().Load(font, "a.ogf");
  // The alignment, where to write what, the lines that are drawn, and y at the end.
  const std::tuple<int, Rect, const char*, const char*, int> layouts[] = {
      // clang-format off
      {0, {5, 7, 30, 99}, "xx xxx\nx", "xx @5,7|xxx@5,19|x@5,31|", 43}, {0, {0, 3, 99, 0}, "x", "", 3},
      {0, {0, 0, 20, 99}, "xx \nxx ", "xx @0,0|xx @0,12|", 24}, {0, {0, 0, 50, 30}, "x xxxxxx x", "x @0,0|", 36},
      {0, {0, 0, 99, 99}, "x\n\nx\n", "x@0,0|@0,12|x@0,24|", 36}, {0, {0, 3, 99, 99}, "", "", 3},
      {0, {0, 0, 99, 13}, "x\nx\nx", "x@0,0|x@0,12|", 24}, {-1, {5, 7, 10, 10}, "xx xx", "xx xx@5,7|", 19},
      {1, {0, 0, 200, 99}, "xxxxxxxxxiiiiiiiii", "xxxxxxxxxiiiiiiiii@50,0|", 12},
      {2, {0, 0, 50, 99}, "xx xxx\nx", "xx @26,0|xxx@20,12|x@40,24|", 36},
      {3, {0, 0, 51, 99}, "x x x xx", "x@0,0|x@20,0|x@41,0|xx@0,12|", 24},
      {3, {0, 0, 50, 99}, "x x\nx", "x x@0,0|x@0,12|", 24}};
  // clang-format on
  Gfx::ImagePtr target(Gfx::NewBuffer(300, 100));
  for (const auto& [align, rect, text, lines, endY] : layouts) {
    font.SetAlign(align);
    EXPECT_EQ(font.Write(target.get(), text, rect).y, endY) << text;
    EXPECT_EQ(std::exchange(font.lines, ""), lines) << "alignment " << align;
    // A log view measures without a picture, and must come to the same height.
    EXPECT_EQ(font.Write(nullptr, text, rect).y, endY) << text;
    font.lines.clear();
  }
}

TEST_F(FontTest, TextSpriteDrawsAgainWithEachTextAndSize) {
  CTextSprite sprite(LoadFont("system"), 60, 20);
  for (const char* text : {"HHHH", "H", ""}) {
    sprite.SetText(text);
    EXPECT_EQ(Drawn(sprite).w, sprite.GetFont()->GetTextWidth(text));
  }
  sprite.SetRotation(90.0F);
  sprite.SetText("HHHH");
  EXPECT_GE(Drawn(sprite).h, 22) << "the copy that is shown is made again";

  CTextSprite list(LoadFont("system"), 0, 0);
  list.GetFont()->SetAlign(2);
  list.SetText("HH HH");
  const std::tuple<int, int, int> sizes[] = {
      {100, 12, 70}, {50, 40, 20}, {20, 40, 2}, {0, 0, 0}, {100, 12, 70}};
  for (const auto& [w, h, x] : sizes) {
    list.SetSize(w, h);
    EXPECT_EQ(Drawn(list).x, x) << w;
  }
}

TEST_F(FontTest, TextSpriteFileGivesSizePlaceTextAndBackdrop) {
  Gfx::ImagePtr(test::NewPicture(40, 10, {10, 20, 30}))->SaveToFile("back.bmp");
  const std::pair<std::string, Rect> cases[] = {
      // clang-format off
      {"", {0, 2, 12, 8}}, {"<FontRect x=\"20\" y=\"10\" w=\"5\" h=\"5\"/>", {20, 12, 12, 8}},
      {"<FontStartPosition x=\"7\" y=\"5\"/><FontRect x=\"20\"/>", {7, 7, 12, 8}},
      {"<BackdropFile>back.bmp</BackdropFile>", {0, 0, 40, 10}}, {"<FontRect x=\"2147483647\" w=\"-2147483648\"/>", {}}};
  // clang-format on
  for (const auto& [fields, drawn] : cases) {
    std::ofstream("text.xml") << "<Sprite><ImageRect x=\"3\" y=\"4\" w=\"50\" h=\"30\"/>" << fields
                              << "<Text>HH</Text><FontFile>system</FontFile></Sprite>";
    CTextSprite sprite;
    EXPECT_TRUE(LoadXml(sprite, "text.xml"));
    EXPECT_EQ(Drawn(sprite), drawn) << fields;
    EXPECT_EQ(sprite.GetRect(), (Rect{3, 4, 50, 30})) << fields;
  }
}

}  // namespace
}  // namespace vask
