#include "gfx/textsprite.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "gfx/fontalign.h"
#include "gfx/spritefactory.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace vask {
namespace {

constexpr char kFile[] = "textsprite_test.xml";
constexpr char kBackdrop[] = "textsprite_test_backdrop.bmp";

class TextSpriteTest : public ::testing::Test {
 protected:
  // The box that encloses what is drawn.
  static CRect<int> Drawn(const CSprite& sprite) {
    const IPixel& image = *sprite.GetImage();
    int left = image.GetWidth(), top = image.GetHeight(), right = 0, bottom = 0;
    for (int y = 0; y < image.GetHeight(); ++y) {
      for (int x = 0; x < image.GetWidth(); ++x) {
        if (image.GetPixel(x, y).a != 0) {
          left = std::min(left, x);
          top = std::min(top, y);
          right = std::max(right, x + 1);
          bottom = std::max(bottom, y + 1);
        }
      }
    }
    return right == 0 ? CRect<int>{} : CRect<int>{left, top, right - left, bottom - top};
  }
  static std::unique_ptr<CTextSprite> Load(const std::string& elements) {
    std::ofstream(kFile) << "<Sprite type=\"sprite_text\">" << elements << "</Sprite>";
    auto sprite = std::make_unique<CTextSprite>();
    EXPECT_TRUE(LoadXml(*sprite, kFile));
    return sprite;
  }

  test::CTestScreen myScreen{64, 64};
};

TEST_F(TextSpriteTest, ANewTextReplacesTheOldOne) {
  CTextSprite sprite(LoadFont("system"), 60, 20);
  sprite.SetText("HHHH");
  EXPECT_EQ(Drawn(sprite).w, 24);
  sprite.SetText("H");
  EXPECT_EQ(Drawn(sprite).w, 6);
  sprite.SetText("");
  EXPECT_EQ(Drawn(sprite), CRect<int>{});
}

TEST_F(TextSpriteTest, ANewTextIsShownFadedAndTurnedAsBefore) {
  CTextSprite sprite(LoadFont("system"), 60, 20);
  sprite.SetText("H");
  sprite.SetAlpha(100);
  sprite.SetRotation(90.0F);
  sprite.SetText("HHHH");
  EXPECT_EQ(sprite.GetImage()->GetWidth(), sprite.GetRect().w);
  EXPECT_LT(sprite.GetRect().w, sprite.GetRect().h);
  EXPECT_GE(Drawn(sprite).h, 22);
  const CRect<int> box = Drawn(sprite);
  int strongest = 0;
  for (int y = box.y; y < box.y + box.h; ++y) {
    for (int x = box.x; x < box.x + box.w; ++x) {
      strongest = std::max<int>(strongest, sprite.GetImage()->GetPixel(x, y).a);
    }
  }
  EXPECT_NEAR(strongest, 100, 2);
}

TEST_F(TextSpriteTest, AnotherSizeLaysTheTextOutAgain) {
  CTextSprite sprite(LoadFont("system"), 100, 12);
  sprite.GetFont()->SetAlign(IFontAlign::kRight);
  sprite.SetText("HH HH");
  EXPECT_EQ(Drawn(sprite).x, 70);
  sprite.SetSize(50, 40);
  EXPECT_EQ(sprite.GetRect().h, 40);
  EXPECT_EQ(Drawn(sprite).x, 20);
  sprite.SetSize(20, 40);
  EXPECT_EQ(Drawn(sprite).h, 20) << "two lines";
  sprite.SetSize(0, 0);
  sprite.SetSize(100, 12);
  EXPECT_EQ(Drawn(sprite).x, 70);
}

TEST_F(TextSpriteTest, AFileGivesSizePlaceTextAndBackdrop) {
  Gfx::ImagePtr(test::NewPicture(40, 10, {10, 20, 30}))->SaveToFile(kBackdrop);
  const std::string size = "<ImageRect x=\"3\" y=\"4\" w=\"50\" h=\"30\"/><Alpha>200</Alpha>";
  const std::string text = "<Text>HH</Text>";
  const std::string font = "<FontFile>system</FontFile>";
  const struct {
    std::string elements;
    CRect<int> drawn;
  } cases[] = {
      {size + text + font, {0, 2, 12, 8}},
      {size + "<FontRect x=\"20\" y=\"10\" w=\"5\" h=\"5\"/>" + text + font, {20, 12, 12, 8}},
      {size + "<FontStartPosition x=\"7\" y=\"5\"/><FontRect x=\"20\"/>" + text + font,
       {7, 7, 12, 8}},
      {size + text, {}},
      {size + text + "<BackdropFile>" + kBackdrop + "</BackdropFile>" + font, {0, 0, 40, 10}},
      {size + text + "<BackdropFile>missing.bmp</BackdropFile>" + font, {0, 2, 12, 8}},
      {"<ImageRect x=\"3\" w=\"-5\" h=\"2147483647\"/>" + text + font, {}},
      {size + "<FontRect x=\"2147483647\" w=\"-2147483648\"/>" + text + font, {}},
      {"", {}},
  };
  for (const auto& file : cases) {
    const auto sprite = Load(file.elements);
    EXPECT_EQ(Drawn(*sprite), file.drawn) << file.elements;
    if (file.elements.starts_with(size)) {
      EXPECT_EQ(sprite->GetRect(), (CRect<int>{3, 4, 50, 30})) << file.elements;
      EXPECT_EQ(sprite->GetAlpha(), 200);
    }
  }
}

TEST_F(TextSpriteTest, AWrittenFileReadsBackAsTheSameSprite) {
  Gfx::ImagePtr(test::NewPicture(40, 10, {10, 20, 30}))->SaveToFile(kBackdrop);
  const auto written = Load(
      "<ImageRect x=\"3\" y=\"4\" w=\"50\" h=\"30\"/><Z>5</Z><FontStartPosition x=\"7\" y=\"15\"/>"
      "<FontRect x=\"1\" y=\"2\" w=\"33\" h=\"8\"/><Text>HH</Text><BackdropFile>" +
      std::string(kBackdrop) + "</BackdropFile><FontFile>system</FontFile>");
  ASSERT_TRUE(SaveXml(*written, kFile, "Sprite"));
  CTextSprite read;
  ASSERT_TRUE(LoadXml(read, kFile));
  EXPECT_EQ(read.GetRect(), written->GetRect());
  EXPECT_EQ(read.GetZ(), 5);
  EXPECT_EQ(Drawn(read), Drawn(*written));
  read.GetFont()->SetAlign(IFontAlign::kRight);
  read.SetText("H");
  written->GetFont()->SetAlign(IFontAlign::kRight);
  written->SetText("H");
  EXPECT_EQ(test::CTestScreen::PixelsOf(dynamic_cast<CPixelSDL&>(*read.GetImage())),
            test::CTestScreen::PixelsOf(dynamic_cast<CPixelSDL&>(*written->GetImage())));
}

}  // namespace
}  // namespace vask
