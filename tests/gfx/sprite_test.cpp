#include "gfx/sprite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "gfx/guielement.h"
#include "gfx/spritefactory.h"
#include "input/mouse.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace vask {
namespace {

using test::NewPicture;
using test::NewSprite;
using Rect = CRect<int>;

const CColor kRed(255, 0, 0);

CSpritePtr Load(const std::string& file) {
  return CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file));
}
CSpritePtr LoadXmlText(const std::string& attribute, const std::string& fields) {
  std::ofstream("sprite.xml") << "<Sprite " << attribute << ">" << fields << "</Sprite>";
  return Load("sprite.xml");
}

class Sprite : public testing::Test {
 protected:
  Sprite() { Gfx::ImagePtr(NewPicture(40, 30, kRed))->SaveToFile("a.bmp"); }

  CSpritePtr Red(int z = 100) { return NewSprite(myLayer, {0, 0, 5, 5}, kRed, z); }

  test::CTestScreen myScreen{80, 60};
  CScreenLayer* myLayer = CScreenLayer::GetSingletonPtr();
};

TEST_F(Sprite, FileGivesTheFieldsThatItHas) {
  const std::string a = "<ImageFilename>a.bmp</ImageFilename>";
  const struct {
    std::string fields;
    Rect rect, scroll;
    int z, alpha;
  } files[] = {
      // clang-format off
      {"", {}, {}, 100, 255},
      {a, {0, 0, 40, 30}, {}, 100, 255},
      {a + "<ImageRect x=\"7\" y=\"8\" ></ImageRect>", {7, 8, 40, 30}, {}, 100, 255},
      {a + "<ImageRect w=\"9\" ></ImageRect><Z>-3</Z>", {0, 0, 9, 30}, {}, -3, 255},
      {a + "<ImageRect w=\"9\" ></ImageRect><Alpha>99</Alpha>", {0, 0, 9, 30}, {}, 100, 99},
      {a + "<ScrollRect x=\"5\" y=\"5\" w=\"0\" h=\"0\" ></ScrollRect>", {0, 0, 40, 30}, {}, 100, 255},
      {a + "<ScrollRect w=\"6\" ></ScrollRect>", {0, 0, 40, 30}, {0, 0, 6, 0}, 100, 255},
      {a + "<Alpha>300</Alpha>", {0, 0, 40, 30}, {}, 100, 255},
      {a + "<Alpha>-5</Alpha>", {0, 0, 40, 30}, {}, 100, 0},
      {"<ImageFilename></ImageFilename><Z>1</Z>", {}, {}, 1, 255},
      {"<ImageFilename>none.bmp</ImageFilename><ImageRect w=\"9\" ></ImageRect><Alpha>8</Alpha>",
       {0, 0, 9, 0}, {}, 100, 8},
      // clang-format on
  };
  for (const auto& file : files) {
    CSpritePtr sprite = LoadXmlText("", file.fields);
    EXPECT_EQ(sprite->GetName(), "sprite.xml");
    for (int round = 0; round < 2; ++round) {  // read, then written and read back
      EXPECT_EQ(std::tuple(sprite->GetRect(), sprite->GetScrollRect()),
                std::tuple(file.rect, file.scroll))
          << file.fields << round;
      EXPECT_EQ(std::tuple(sprite->GetZ(), sprite->GetAlpha(), sprite->IsEmpty()),
                std::tuple(file.z, file.alpha, file.rect.h == 0))
          << file.fields << round;
      EXPECT_EQ(sprite->GetParent(), myLayer);
      ASSERT_TRUE(SaveXml(*sprite, "written.xml"));
      sprite = Load("written.xml");
    }
  }
}

TEST_F(Sprite, FactoryMakesTheKindThatTheFileNames) {
  for (int kind : {0, 1, 3, 4}) {
    const std::string name = CSpriteFactory::NameFromType(kind);
    EXPECT_EQ(LoadXmlText("type=\"" + name + "\" ", "")->GetTypeId(), kind) << name;
  }
  EXPECT_EQ(LoadXmlText("type=\"nonsense\" ", "")->GetTypeId(), CSprite::kBase);
  EXPECT_EQ(CSpriteFactory::Create(5), nullptr);
  EXPECT_EQ(CSpriteFactory::Create(-1), nullptr);
  for (const char* name : {"", "x", "ml", "xml", "none.xml", "none.bmp"}) {
    EXPECT_TRUE(Load(name)->IsEmpty()) << name;
  }
  for (int i = 0; i < 2; ++i) {  // its holder does not delete it
    const CSpritePtr layer = LoadXmlText("type=\"sprite_screenlayer\" ", "");
    EXPECT_EQ(layer.Get(), myLayer);
    EXPECT_EQ(layer->GetParent(), nullptr);
  }
  EXPECT_EQ(CScreenLayer::PeekSingletonPtr(), myLayer);
  CScreenLayer::DeleteSingleton();
  EXPECT_EQ(CSmartPtrManager<CSprite>::GetSingletonPtr()->Count(myLayer), 0U);
}

TEST_F(Sprite, CopyIsMadeFromSizeRotationAndAlphaInAnyOrder) {
  const std::vector<std::function<void(CSprite&)>> changes = {
      [](CSprite& sprite) { sprite.SetSize(20, 10); },
      [](CSprite& sprite) { sprite.SetRotation(90.0F); },
      [](CSprite& sprite) { sprite.SetAlpha(100); }};
  std::vector<std::size_t> order = {0, 1, 2};
  do {
    const CSpritePtr sprite = Load("a.bmp");
    for (const std::size_t i : order) {
      changes[i](*sprite);
    }
    EXPECT_EQ(sprite->GetRect().w, sprite->GetImage()->GetWidth());
    EXPECT_LT(sprite->GetRect().w, sprite->GetRect().h) << "a wide picture, turned, is tall";
    EXPECT_NEAR(sprite->GetRect().h, 20, 2);
    EXPECT_EQ(sprite->GetImage()->GetPixel(5, 10).a, 100);
    sprite->SetSize(40, 30);
    sprite->SetRotation(360.0F);
    sprite->SetAlpha(255);
    for (const float degrees : {360.5F, NAN, INFINITY}) {
      sprite->SetRotation(degrees);
    }
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 40, 30}));
    EXPECT_EQ(sprite->GetImage()->GetFileName(), "a.bmp") << "the loaded one again";
    changes[order[0]](*sprite);
    sprite->SetImage(NewPicture(6, 7, kRed));
    EXPECT_EQ(sprite->GetAlpha(), 255);
    sprite->SetAlpha(10);
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 6, 7})) << "size and rotation are forgotten";
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Sprite, ImageRectIsCutToTheSheetAndTheCopyMadeAgain) {
  // clang-format off
  const std::pair<Rect, Rect> cases[] = {
      {{10, 5, 20, 10}, {10, 5, 20, 10}}, {{30, 20, 40, 40}, {30, 20, 10, 10}}, {{0, 0, 0, 0}, {}},
      {{-5, -5, 10, 10}, {0, 0, 5, 5}}, {{5, 5, -3, 4}, {}}, {{2147483647, 0, 2147483647, 9}, {}}};
  // clang-format on
  for (const auto& [wanted, shown] : cases) {
    const CSpritePtr sprite = Load("a.bmp");
    sprite->SetAlpha(128);
    sprite->SetImageRect(wanted);
    EXPECT_EQ(sprite->GetImageRect(), shown);
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, shown.w, shown.h}));
    sprite->SetRotation(30.0F);
    sprite->SetSize(0, 12);
    sprite->SetSize(8, 8);
    myLayer->DrawFrame();
  }
}

TEST_F(Sprite, PaintsOnlyInsideItsRectAndItsClips) {
  const Rect all{0, 0, 80, 60};
  const struct {
    Rect rect, scroll, clip, red;
  } cases[] = {
      // clang-format off
      {{10, 10, 8, 8}, all, all, {10, 10, 8, 8}}, {{10, 10, 90, 90}, all, all, {10, 10, 40, 30}},
      {{10, 10, 40, 30}, {20, 0, 5, 15}, all, {20, 10, 5, 5}}, {{-8, -8, 10, 10}, all, all, {0, 0, 2, 2}},
      {{10, 10, 40, 30}, all, {5, 15, 10, 90}, {10, 15, 5, 25}}, {{10, 10, 40, 30}, {0, 0, 5, 5}, all, {}},
      // clang-format on
  };
  for (const auto& row : cases) {
    CSprite canvas;
    canvas.SetImage(NewPicture(80, 60, {0, 0, 0}));
    const CSpritePtr sprite = Load("a.bmp");
    sprite->SetRect(row.rect);
    sprite->SetScrollRect(row.scroll);
    sprite->PaintPart(&canvas, row.clip);
    for (int i = 0; i < 80 * 60; ++i) {
      const bool isRed = canvas.GetImage()->GetPixel(i % 80, i / 80).r == 255;
      ASSERT_EQ(isRed, row.red.Contains(i % 80, i / 80)) << row.rect.w << ": " << i;
    }
  }
}

TEST_F(Sprite, GuiElementDragsTheSpriteThatItWraps) {
  const CSpritePtr sprite = NewSprite(myLayer, {10, 10, 20, 20}, kRed, 7);
  zogui::CGuiElement element(sprite.Get());
  zogui::CGuiElement nothing(nullptr);
  CMouse& mouse = CMouse::GetSingleton();
  const int steps[][3] = {{4, 4, 10}, {1, 4, 64}, {1, 1, 64}, {0, 0, 64}};  // down, up, x then
  for (const auto& [down, up, x] : steps) {
    mouse.OnMouseMove(sprite->GetX() + 5, sprite->GetY() + 2);
    mouse.OnMouseButtonDown(down);
    nothing.OnMouseButtonDown(down);
    mouse.OnMouseMove(69, 49);
    mouse.OnMouseButtonUp(up);
    EXPECT_EQ(element.GetRect(), (Rect{x, x == 64 ? 47 : 10, 20, 20})) << down;
    EXPECT_EQ(element.IsDragging(), up == 4 && down == 1);
  }
  EXPECT_EQ(element.GetZ() + nothing.GetZ(), 7);
  element.SetDraggable(false);
  mouse.OnMouseButtonDown(1);
  EXPECT_FALSE(element.IsDragging());
  EXPECT_EQ(nothing.GetRect(), Rect{});
}

TEST_F(Sprite, StandsInItsLayerByDepthTheNewestInFrontOfItsEquals) {
  std::vector<CSpritePtr> sprites;
  const auto order = [&] {
    std::string text;
    for (CSprite* child : myLayer->GetChildren()) {
      const auto found = std::find(sprites.begin(), sprites.end(), CSpritePtr(child));
      text += std::to_string(found - sprites.begin());
    }
    return text;
  };
  for (const int z : {50, 100, 50, 7, 100, -2147483647 - 1, 2147483647}) {
    sprites.push_back(Red(z));
  }
  EXPECT_EQ(order(), "5320416");
  sprites[1]->SetZ(50);
  EXPECT_EQ(order(), "5312046");
  for (const bool visible : {false, false, true, true}) {
    sprites[2]->SetVisible(visible);
    sprites[2]->SetZ(100);
    sprites[2]->SetX(9);
    EXPECT_EQ(order(), visible ? "5310246" : "531046");
    myLayer->DrawFrame();
    EXPECT_EQ(myScreen.At(12, 2), visible ? 0xFF0000U : 0U);
  }
}

TEST_F(Sprite, MayChangeAndDieAfterItsLayerAndItsScreen) {
  CSpritePtr orphan = Red();
  CSpritePtr sprite = Red();
  {
    CSpriteLayer layer;
    layer.SetParent(myLayer);
    layer.SetParent(&layer);
    EXPECT_EQ(layer.GetParent(), myLayer) << "no layer can be put into itself";
    orphan->SetParent(&layer);
    orphan->SetVisible(false);
    myLayer->DrawFrame();
  }
  orphan->SetVisible(true);
  EXPECT_EQ(orphan->GetParent(), nullptr);
  Gfx::SetScreen(nullptr);
  sprite->SetX(9);
  myLayer->DrawFrame();
  sprite.Reset();
  Gfx::SetScreen(&myScreen.Picture());
  myLayer->DrawFrame();
  EXPECT_EQ(myScreen.At(2, 2), 0U) << "nobody draws them any more";
}

TEST_F(Sprite, DrawsAllOnceForEachReason) {
  const CSpritePtr sprite = Red();
  test::CLogCapture log;
  const auto frames = [&] {
    log.Clear();
    myLayer->DrawFrame();
    myLayer->DrawFrame();
    return log.Count("drawing all");
  };
  EXPECT_EQ(frames(), 1U) << "the first frame";
  sprite->SetAlpha(254);
  EXPECT_EQ(sprite->GetDirtyState(), 1) << "changed";
  sprite->SetX(3);
  EXPECT_EQ(sprite->GetDirtyState(), 2) << "moved";
  EXPECT_EQ(frames(), 0U);
  EXPECT_EQ(sprite->GetDirtyState(), 0);
  myLayer->RefreshAll();
  EXPECT_EQ(frames(), 1U);
  myScreen.Resize(50, 30);
  EXPECT_EQ(frames(), 1U);
  sprite->SetX(0);
  myLayer->DrawFrame();
  EXPECT_EQ(myScreen.At(6, 2), 0U) << "the background is known after drawing all";
}

}  // namespace
}  // namespace vask
