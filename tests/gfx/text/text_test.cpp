#include "gfx/sdl/sdltextures.h"
#include "gfx/text/font.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/lotsatextsprite.h"
#include "gfx/text/ogffontloader.h"
#include "gfx/text/textsprite.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

struct Font : testing::Test {
  // The red of the i-th cell, of three columns and two rows, is 30 + 40 i.
  Font() {
    const auto pixelAt = [](int x, int y) {
      return 0xFF1E64C8U + ((40U * static_cast<unsigned>(y / 8 * 3 + x / 16)) << 16);
    };
    Filled(Gfx::NewBuffer(48, 16), pixelAt)->SaveToFile("sheet.bmp");
  }

  static std::unique_ptr<CFont> FontOf(const std::string& content) {
    WriteFile("a.ogf", content);
    return LoadFont("a.ogf");
  }
  // Red of some pixels of a text that is drawn at the origin of an empty picture.
  static std::vector<int> Reds(CFont& font, const std::string& text, std::vector<int> xs) {
    const ImagePtr target(Gfx::NewBuffer(100, 20));
    font.WriteLine(target.get(), text, 0, 0);
    std::ranges::transform(xs, xs.begin(), [&](int x) { return target->GetPixel(x, 1).r; });
    return xs;
  }
  // The box that encloses what is drawn.
  static Rect Drawn(const CSprite& sprite) { return Gfx::SolidPart(*sprite.GetImage()); }

  CTestScreen myScreen{64, 64};
  const std::string myFont = "OGF;3;2;16;8;6;888;ab;c d;643200401699;sheet.bmp";
};

TEST_F(Font, GlyphsAreCutFromTheirCells) {
  for (const char* lineEnd : {"", "\n", "\r\n", "\nOGF;more"}) {
    const std::unique_ptr<CFont> font(FontOf(myFont + lineEnd)->Clone());
    EXPECT_EQ(font->GetFileName(), "a.ogf");
    EXPECT_EQ(font->GetTextWidth(";"), 0);
    EXPECT_EQ(font->GetTextWidth("b dx"), 36) << "with a blank of a quarter; no glyph, no space";
    EXPECT_EQ(font->GetLineHeight(), 8);
    // The wide "d" ends at the edge of the sheet.
    EXPECT_EQ(Reds(*font, "bxcd", {0, 7, 8, 17, 18, 33, 34}),
              (std::vector{70, 70, 150, 150, 230, 230, 0}));
  }
  EXPECT_FALSE(CSDLTextures::GetSingletonPtr()->Exists("sheet.bmp")) << "fonts free their sheet";
  const auto flat = FontOf("OGF;3;2;16;4;6;888;ab;c d;646464646464;sheet.bmp");
  EXPECT_EQ(flat->GetSheet()->GetHeight(), 8) << "half of the picture's";
  EXPECT_EQ(Reds(*flat, "ac", {1, 17}), (std::vector{30, 150}));
}

TEST_F(Font, TintMultipliesTheColoursOfACopy) {
  WriteFile("numbers.ogf", "OGF;3;2;16;8;1;940;+;64;sheet.bmp");
  const ImagePtr target(Gfx::NewBuffer(100, 20));
  const CLogCapture log;

  const std::unique_ptr<CFont> font = LoadFont("numbers.ogf");
  font->WriteLine(target.get(), "+500", 0, 0);

  EXPECT_EQ(test::Packed(target->GetPixel(0, 0)), 0xFF213200U);
  EXPECT_EQ(test::Packed(font->GetSheet()->GetPixel(47, 15)), 0xFFFF3200U);
  EXPECT_TRUE(log.Has("Red: 1.125Green: 0.5Blue: 0"));
  EXPECT_EQ(FontOf(myFont)->GetSheet()->GetPixel(47, 15).g, 100);
}

TEST_F(Font, BadFileIsReportedAndDrawsNothing) {
  const auto complaint = [](const std::string& content) {
    const CLogCapture log;
    EXPECT_EQ(Reds(*FontOf(content), "ab", {0}), std::vector{0}) << content;
    return log.Text();
  };
  EXPECT_EQ(complaint("ogf" + myFont.substr(3)), "a.ogf is probably not a ogf file\n");
  EXPECT_EQ(complaint("OGF;1;1;1;1;8;888;ab;6432;x"),
            "a.ogfError, the char count (8) and numbers of charachters (9) don't match\n");
  EXPECT_EQ(complaint("OGF;1;1;1;1;2;888;ab;646;x"),
            "a.ogf Error, the number of character width's ( 3) doesn't match the number of "
            "characters (2) times two\n");
  EXPECT_TRUE(complaint("OGF;3;2;16;8;2;888;ab;6464;none.bmp")
                  .ends_with("\nCould not load imagenone.bmp\n"));
  const std::string noSize = "a.ogf Error, the sheet has no valid size: ";
  EXPECT_EQ(complaint("OGF;0;2;16;8;2;888;ab;6464;sheet.bmp"),
            noSize + "0 x 2 cells of 16 x 8 pixels for 2 characters\n");
  EXPECT_EQ(complaint("OGF;1;2;1;2049;1;888;a;64;sheet.bmp"),
            noSize + "1 x 2 cells of 1 x 2049 pixels for 1 characters\n");
}

TEST_F(Font, TextIsLaidOutByTheAlignment) {
  struct CNotingFont : CFont {  // notes every line that it draws
    SPenPosition WriteLine(IPixel* target, const std::string& text, int x, int y) override {
      lines += text + "@" + std::to_string(x) + "," + std::to_string(y) + "|";
      return CFont::WriteLine(target, text, x, y);
    }
    std::string lines;
  } font;
  // Widths: "x" 10, "i" 1, blank 4; lines are 12 high.
  WriteFile("a.ogf", "OGF;3;1;10;12;3;888;xi ;640726;sheet.bmp");
  COgfFontLoader().Load(font, "a.ogf");
  enum { kLeft, kCenter, kRight, kJustify, kNone };
  const ImagePtr target(Gfx::NewBuffer(300, 100));
  // The lines and where they begin; where the text ends.
  const auto laidOut = [&](int by, const char* text, const Rect& in) {
    font.lines.clear();
    font.SetAlign(by);
    const SPenPosition end = font.Write(target.get(), text, in);
    const std::string drawn = std::exchange(font.lines, "");
    EXPECT_EQ(font.Write(nullptr, text, in).y, end.y) << "measured without a picture: " << text;
    return drawn + std::to_string(end.x) + "," + std::to_string(end.y);
  };
  EXPECT_EQ(laidOut(kLeft, "xx xxx\nx", {5, 7, 30, 99}), "xx @5,7|xxx@5,19|x@5,31|15,43");
  EXPECT_EQ(laidOut(kLeft, "x", {0, 3, 99, 0}), "0,3");
  EXPECT_EQ(laidOut(kLeft, "xx \nxx ", {0, 0, 20, 99}), "xx @0,0|xx @0,12|24,24");
  EXPECT_EQ(laidOut(kLeft, "x xxxxxx x", {0, 0, 50, 30}), "x @0,0|14,36");
  EXPECT_EQ(laidOut(kLeft, "x\n\nx\n", {0, 0, 99, 99}), "x@0,0|@0,12|x@0,24|10,36");
  EXPECT_EQ(laidOut(kLeft, "x\nx\nx", {0, 0, 99, 13}), "x@0,0|x@0,12|10,24");
  EXPECT_EQ(laidOut(kLeft, "x\tx", {0, 0, 99, 99}), "x    x@0,0|36,12");
  EXPECT_EQ(laidOut(kNone, "xx xx", {5, 7, 1, 1}), "xx xx@5,7|49,19");
  EXPECT_EQ(laidOut(kCenter, "xxxi", {0, 0, 90, 9}), "xxxi@29,0|60,12");
  EXPECT_EQ(laidOut(kRight, "xx xxx", {3, 0, 50, 99}), "xx @29,0|xxx@23,12|53,24");
  EXPECT_EQ(laidOut(kJustify, "x\nx x x xx", {1, 0, 51, 13}), "x@1,0|x@1,12|x@21,12|x@42,12|52,24");
  EXPECT_EQ(laidOut(kJustify, "x x\nx", {0, 0, 50, 99}), "x x@0,0|x@0,12|10,24");
  font.SetAlign(kRight);
  font.Write(target.get(), "x", 5, 88);
  EXPECT_EQ(font.lines, "x@290,88|") << "to the picture's edge";
}

TEST_F(Font, TextSpriteShowsEachNewTextInTheSystemFontAlsoTurned) {
  const CSpritePtr sign(new CTextSprite(LoadFont("system"), 60, 20));
  sign->SetParent(CScreenLayer::GetSingletonPtr());
  sign->SetText("+500");

  EXPECT_EQ(Drawn(*sign), (Rect{0, 2, 24, 8}));
  sign->SetText("H");
  EXPECT_EQ(Drawn(*sign).w, 6);
  EXPECT_EQ(sign->GetImage()->GetPixel(0, 2).r, 255);
  EXPECT_EQ(test::Packed(sign->GetImage()->GetPixel(1, 3)), 0xFF101018U) << "the shadow";
  for (const char* unknown : {"\x1F", "\x7F"}) {
    sign->SetText(unknown);
    EXPECT_EQ(Drawn(*sign), (Rect{0, 2, 6, 8})) << "a box";
  }
  sign->SetRotation(90.0F);
  sign->SetText("HHHH");
  EXPECT_GE(Drawn(*sign).h, 22) << "the copy that is shown is made again";
}

TEST_F(Font, TextSpriteDrawsAgainInEachSize) {
  CTextSprite list(LoadFont("system"), 0, 0);
  list.GetFont()->SetAlign(2);
  list.SetText("HH HH");
  const auto drawnAt = [&list](int width, int height) {
    list.SetSize(width, height);
    return Drawn(list);
  };
  EXPECT_EQ(drawnAt(100, 40), (Rect{70, 2, 30, 8}));
  EXPECT_EQ(drawnAt(50, 20), (Rect{20, 2, 30, 8}));
  EXPECT_EQ(drawnAt(20, 12), (Rect{2, 2, 12, 8})) << "the second line is cut off";
  EXPECT_EQ(drawnAt(20, 0), Rect{});
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(drawnAt(20, 30), (Rect{2, 2, 18, 20}));
  EXPECT_FALSE(list.IsEmpty());
  list.SetBackdrop(ImagePtr(NewPicture(7, 3, {1, 2, 3})));
  EXPECT_EQ(Drawn(list), (Rect{0, 0, 20, 22}));
}

TEST_F(Font, TextSpriteFileGivesSizePlaceTextAndBackdrop) {
  ImagePtr(NewPicture(40, 10, {10, 20, 30}))->SaveToFile("back.bmp");
  // As it is read, and as it is written and read again.
  const auto drawn = [](const std::string& fields) {
    CTextSprite sprite, again;
    WriteFile("text.xml", R"(<S><ImageRect x="3" y="4" w="50" h="30"/><Text>HH</Text>)" + fields +
                              "<FontFile>system</FontFile></S>");
    LoadXml(sprite, "text.xml");
    EXPECT_TRUE(SaveXml(sprite, "written.xml"));
    LoadXml(again, "written.xml");
    EXPECT_EQ(Drawn(sprite), Drawn(again)) << fields;
    EXPECT_EQ(again.GetRect(), (Rect{3, 4, 50, 30})) << fields;
    return Drawn(sprite);
  };
  EXPECT_EQ(drawn(""), (Rect{0, 2, 12, 8}));
  EXPECT_EQ(drawn(R"(<FontRect x="20" y="10" w="5" h="5"/>)"), (Rect{20, 12, 12, 8}));
  EXPECT_EQ(drawn(R"(<FontStartPosition x="7" y="5"/><FontRect x="20"/>)"), (Rect{7, 7, 12, 8}));
  EXPECT_EQ(drawn("<BackdropFile>back.bmp</BackdropFile>"), (Rect{0, 0, 40, 10}));
  EXPECT_EQ(drawn(R"(<FontRect x="2147483647" w="-2147483648"/>)"), Rect{});
}

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

  // The y and width that are asked for when the text has that height and is scrolled so far.
  const auto askedAt = [&](int height, int scroll) {
    drawer.height = height;
    view->ScrollBy(scroll);
    return drawer.asked;
  };
  EXPECT_EQ(askedAt(4, 0), "-16,30");
  EXPECT_EQ(askedAt(25, -2), "3,30");
  EXPECT_EQ(askedAt(50, 30), "30,30");
  EXPECT_EQ(askedAt(55, 0), "35,30");
  EXPECT_EQ(askedAt(1200000, -1000), "1198980,30");
  EXPECT_EQ(askedAt(1200012, 0), "1198980,30");
  drawer.height = 30;
  view->SetSize(30, 20);
  EXPECT_EQ(drawer.asked, "1198980,30") << "it had that size";
  view->SetSize(25, 10);
  EXPECT_EQ(drawer.asked, "19,25!");
}

}  // namespace
}  // namespace vask::test
