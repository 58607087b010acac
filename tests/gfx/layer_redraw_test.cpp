// What a frame draws from the changes alone must be, pixel for pixel, what painting everything from
// nothing gives. Sprites move over each other, fade, turn, hide, change depth and layer and die.

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "gfx/screenlayer.h"
#include "support/testpicture.h"

namespace vask {
namespace {

using test::CTestScreen;

constexpr int kWidth = 96;
constexpr int kHeight = 72;
constexpr int kFrames = 250;
constexpr std::size_t kLayers = 3;

class CScene {
 public:
  explicit CScene(unsigned seed) : myRandom(seed) {
    for (std::size_t i = 0; i < kLayers; ++i) {
      myLayers.push_back(std::make_unique<CSpriteLayer>());
      myLayers.back()->SetZ(Below(6));
      myLayers.back()->SetParent(AnyLayer());
    }
    for (int i = 0; i < 14; ++i) {
      AddSprite();
    }
  }

  void ChangeSomething() {
    const int changes = Below(6);
    for (int i = 0; i < changes; ++i) {
      if (Below(12) == 0) {
        ChangeLayer();
      } else {
        ChangeSprite();
      }
    }
  }

  // Everything that is visible, painted back to front onto black.
  static std::vector<std::uint32_t> Expected() {
    CSprite canvas;
    canvas.SetImage(Gfx::NewScreenBuffer(kWidth, kHeight, Gfx::kMagenta));
    PaintLayer(*CScreenLayer::GetSingletonPtr(), canvas);
    return CTestScreen::PixelsOf(dynamic_cast<CPixelSDL&>(*canvas.GetImage()));
  }

  std::string lastChange;

 private:
  int Below(int limit) { return static_cast<int>(myRandom() % static_cast<unsigned>(limit)); }
  int Between(int low, int high) { return low + Below(high - low); }
  CRect<int> AnyRect() {
    return {Between(-20, kWidth), Between(-20, kHeight), Below(60), Below(60)};
  }

  CSpriteLayer* AnyLayer() {
    const auto i = static_cast<std::size_t>(Below(static_cast<int>(kLayers) * 2));
    return i < myLayers.size() && myLayers[i] ? myLayers[i].get() : CScreenLayer::GetSingletonPtr();
  }

  CSprite& AnySprite() { return *mySprites[static_cast<std::size_t>(Below(Count()))]; }
  int Count() const { return static_cast<int>(mySprites.size()); }

  // With holes, half-transparent pixels and opaque magenta, keyed or with an alpha channel.
  IPixel* AnyPicture() {
    const int width = Between(1, 30);
    const int height = Between(1, 30);
    const bool isKeyed = Below(2) == 0;
    IPixel* picture = isKeyed ? Gfx::NewScreenBuffer(width, height, Gfx::kMagenta)
                              : Gfx::NewBuffer(width, height);
    const CColor color(static_cast<std::uint8_t>(Below(256)), static_cast<std::uint8_t>(Below(256)),
                       static_cast<std::uint8_t>(Below(256)),
                       static_cast<std::uint8_t>(isKeyed || Below(2) == 0 ? 255 : Below(256)));
    const CColor magenta(255, 0, 255);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        if ((x + y) % 5 != 0) {
          picture->PutPixel(x, y, (x * y) % 3 == 0 ? magenta : color);
        }
      }
    }
    return picture;
  }

  void AddSprite() {
    auto sprite = std::make_unique<CSprite>();
    sprite->SetImage(AnyPicture());
    sprite->SetPosition(Between(-30, kWidth + 10), Between(-30, kHeight + 10));
    sprite->SetZ(Below(6));
    sprite->SetParent(AnyLayer());
    mySprites.push_back(std::move(sprite));
  }

  void ChangeSprite() {
    if (mySprites.size() < 6) {
      AddSprite();
      return;
    }
    CSprite& sprite = AnySprite();
    const std::vector<std::pair<const char*, std::function<void()>>> changes = {
        {"position",
         [&] { sprite.SetPosition(Between(-40, kWidth + 20), Between(-40, kHeight + 20)); }},
        {"step", [&] { sprite.SetPosition(sprite.GetX() + Between(-4, 5), sprite.GetY() + 2); }},
        {"x", [&] { sprite.SetX(Between(-40, kWidth + 20)); }},
        {"y", [&] { sprite.SetY(Between(-40, kHeight + 20)); }},
        {"z", [&] { sprite.SetZ(Below(6)); }},
        {"alpha", [&] { sprite.SetAlpha(Below(256)); }},
        {"rotation", [&] { sprite.SetRotation(static_cast<float>(Below(720))); }},
        {"size", [&] { sprite.SetSize(Below(50), Below(50)); }},
        {"rect", [&] { sprite.SetRect(AnyRect()); }},
        {"scroll rect", [&] { sprite.SetScrollRect(AnyRect()); }},
        {"image rect",
         [&] {
           sprite.SetImageRect({Below(10), Below(10), Below(20), Below(20)});
         }},
        {"image", [&] { sprite.SetImage(AnyPicture()); }},
        {"no image", [&] { sprite.SetImage(nullptr); }},
        {"loaded image", [&] { sprite.SetVisible(true), sprite.SetAlpha(255); }},
        {"visible", [&] { sprite.SetVisible(Below(2) == 0); }},
        {"blink", [&] { sprite.SetVisible(false), sprite.SetVisible(true); }},
        {"layer", [&] { sprite.SetParent(AnyLayer()); }},
        {"no layer", [&] { sprite.SetParent(nullptr); }},
        {"out and in", [&] { sprite.SetParent(nullptr), sprite.SetParent(AnyLayer()); }},
        {"move, hide, move", [&] { sprite.SetX(5), sprite.SetVisible(false), sprite.SetX(50); }},
        {"add", [&] { AddSprite(); }},
        {"add and delete", [&] { AddSprite(), mySprites.pop_back(); }},
        {"delete", [&] { mySprites.erase(mySprites.begin() + Below(Count())); }},
    };
    const auto& [name, change] =
        changes[static_cast<std::size_t>(Below(static_cast<int>(changes.size())))];
    lastChange = name;
    change();
  }

  void ChangeLayer() {
    auto& layer = myLayers[static_cast<std::size_t>(Below(static_cast<int>(kLayers)))];
    lastChange = "of a layer";
    switch (Below(6)) {
      case 0:
        layer->SetZ(Below(6));
        break;
      case 1:
        layer->SetVisible(Below(2) == 0);
        break;
      case 2:
        layer->SetParent(AnyLayer());
        break;
      case 3:
        layer->SetImage(AnyPicture());
        layer->SetPosition(Below(kWidth), Below(kHeight));
        break;
      case 4:
        layer = std::make_unique<CSpriteLayer>();  // the old one orphans its sprites
        layer->SetParent(AnyLayer());
        break;
      default:
        CScreenLayer::GetSingletonPtr()->RefreshAll();
    }
  }

  static void PaintLayer(CSpriteLayer& layer, CSprite& canvas) {
    layer.Paint(&canvas);
    const std::vector<CSprite*>& children = layer.GetChildren();
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      if (auto* inner = dynamic_cast<CSpriteLayer*>(*child)) {
        PaintLayer(*inner, canvas);
      } else {
        (*child)->Paint(&canvas);
      }
    }
  }

  std::mt19937 myRandom;
  std::vector<std::unique_ptr<CSpriteLayer>> myLayers;
  std::vector<std::unique_ptr<CSprite>> mySprites;
};

class LayerRedraw : public testing::TestWithParam<unsigned> {};

TEST_P(LayerRedraw, ShowsWhatPaintingEverythingShows) {
  CTestScreen screen(kWidth, kHeight);
  CScene scene(GetParam());
  for (int frame = 0; frame < kFrames; ++frame) {
    scene.ChangeSomething();
    CScreenLayer::GetSingletonPtr()->DrawFrame();
    ASSERT_EQ(screen.Pixels(), CScene::Expected())
        << "frame " << frame << ", last change: " << scene.lastChange;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LayerRedraw, testing::Range(1U, 13U));

}  // namespace
}  // namespace vask
