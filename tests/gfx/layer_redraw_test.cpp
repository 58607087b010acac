// What a frame draws from the changes alone must be, pixel for pixel, what painting everything from
// nothing gives. Sprites move over each other, fade, turn, hide, change depth and layer and die.

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>
#include <vector>

#include "gfx/screenlayer.h"
#include "support/testpicture.h"

namespace vask {
namespace {

using test::CTestScreen;

constexpr int kWidth = 96;
constexpr int kHeight = 72;
constexpr int kFrames = 250;

class CScene {
 public:
  explicit CScene(unsigned seed) : myRandom(seed) {
    for (Layer& layer : myLayers) {
      RenewLayer(layer);
    }
  }

  void ChangeSomething() {
    for (int changes = Below(6); changes > 0; --changes) {
      while (mySprites.size() < 9) {
        AddSprite();
      }
      Below(12) == 0 ? ChangeLayer() : ChangeSprite();
    }
  }

  // Everything that is visible, painted back to front onto black.
  static std::vector<std::uint32_t> Expected() {
    CSprite canvas;
    canvas.SetImage(Gfx::NewScreenBuffer(kWidth, kHeight, Gfx::kMagenta));
    PaintLayer(*CScreenLayer::GetSingletonPtr(), canvas);
    return CTestScreen::PixelsOf(dynamic_cast<CPixelSDL&>(*canvas.GetImage()));
  }

 private:
  using Layer = std::unique_ptr<CSpriteLayer>;

  int Below(int limit) { return static_cast<int>(myRandom() % static_cast<unsigned>(limit)); }
  int Place(int size) { return Below(size + 60) - 40; }
  CRect<int> AnyRect() { return {Place(kWidth), Place(kHeight), Below(60), Below(60)}; }
  std::uint8_t AnyByte() { return static_cast<std::uint8_t>(Below(256)); }
  bool Toss() { return Below(2) == 0; }

  CSpriteLayer* AnyLayer() {
    const auto i = static_cast<std::size_t>(Below(6));
    return i < myLayers.size() && myLayers[i] ? myLayers[i].get() : CScreenLayer::GetSingletonPtr();
  }

  // With holes, half-transparent pixels and opaque magenta, keyed or with an alpha channel.
  IPixel* AnyPicture() {
    const bool isKeyed = Toss();
    const int width = 1 + Below(29);
    const int height = 1 + Below(29);
    IPixel* picture = isKeyed ? Gfx::NewScreenBuffer(width, height, Gfx::kMagenta)
                              : Gfx::NewBuffer(width, height);
    const std::uint8_t alpha = isKeyed || Toss() ? 255 : AnyByte();
    const CColor color(AnyByte(), AnyByte(), AnyByte(), alpha);
    for (int i = 0; i < width * height; ++i) {
      if (i % 7 != 0) {
        picture->PutPixel(i % width, i / width, i % 3 == 0 ? CColor(255, 0, 255) : color);
      }
    }
    return picture;
  }

  void AddSprite() {
    mySprites.push_back(std::make_unique<CSprite>());
    mySprites.back()->SetImage(AnyPicture());
    mySprites.back()->SetPosition(Place(kWidth), Place(kHeight));
    mySprites.back()->SetZ(Below(6));
    mySprites.back()->SetParent(AnyLayer());
  }

  // An old layer orphans its sprites.
  void RenewLayer(Layer& layer) {
    layer = std::make_unique<CSpriteLayer>();
    layer->SetZ(Below(6));
    layer->SetParent(AnyLayer());
  }

  void ChangeSprite() {
    const auto index = Below(static_cast<int>(mySprites.size()));
    CSprite& s = *mySprites[static_cast<std::size_t>(index)];
    // clang-format off
    const std::vector<std::function<void()>> changes = {
        [&] { s.SetPosition(Place(kWidth), Place(kHeight)); },
        [&] { s.SetPosition(s.GetX() + Below(9) - 4, s.GetY() + 2); },
        [&] { s.SetX(Place(kWidth)); },
        [&] { s.SetY(Place(kHeight)); },
        [&] { s.SetZ(Below(6)); },
        [&] { s.SetAlpha(Below(256)); },
        [&] { s.SetRotation(static_cast<float>(Below(720))); },
        [&] { s.SetSize(Below(50), Below(50)); },
        [&] { s.SetRect(AnyRect()); },
        [&] { s.SetScrollRect(AnyRect()); },
        [&] { s.SetImageRect({Below(10), Below(10), Below(20), Below(20)}); },
        [&] { s.SetImage(AnyPicture()); },
        [&] { s.SetImage(nullptr); },
        [&] { s.SetVisible(true), s.SetAlpha(255); },
        [&] { s.SetVisible(Toss()); },
        [&] { s.SetVisible(false), s.SetVisible(true); },
        [&] { s.SetParent(AnyLayer()); },
        [&] { s.SetParent(nullptr); },
        [&] { s.SetParent(nullptr), s.SetParent(AnyLayer()); },
        [&] { s.SetX(5), s.SetVisible(false), s.SetX(50); },
        [&] { AddSprite(); },
        [&] { AddSprite(), mySprites.pop_back(); },
        [&] { mySprites.erase(mySprites.begin() + index); },
    };
    // clang-format on
    changes[static_cast<std::size_t>(Below(static_cast<int>(changes.size())))]();
  }

  void ChangeLayer() {
    Layer& layer = myLayers[static_cast<std::size_t>(Below(3))];
    const std::array<std::function<void()>, 6> changes = {
        [&] { layer->SetZ(Below(6)); },
        [&] { layer->SetVisible(Toss()); },
        [&] { layer->SetParent(AnyLayer()); },
        [&] { layer->SetImage(AnyPicture()), layer->SetPosition(Below(kWidth), Below(kHeight)); },
        [&] { RenewLayer(layer); },
        [&] { CScreenLayer::GetSingletonPtr()->RefreshAll(); }};
    changes[static_cast<std::size_t>(Below(6))]();
  }

  static void PaintLayer(CSpriteLayer& layer, CSprite& canvas) {
    layer.Paint(&canvas);
    const std::vector<CSprite*>& children = layer.GetChildren();
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      auto* inner = dynamic_cast<CSpriteLayer*>(*child);
      inner != nullptr ? PaintLayer(*inner, canvas) : (*child)->Paint(&canvas);
    }
  }

  std::mt19937 myRandom;
  std::array<Layer, 3> myLayers;
  std::vector<std::unique_ptr<CSprite>> mySprites;
};

TEST(LayerRedraw, ShowsWhatPaintingEverythingShows) {
  for (unsigned seed = 1; seed < 13; ++seed) {
    CTestScreen screen(kWidth, kHeight);
    CScene scene(seed);
    for (int frame = 0; frame < kFrames; ++frame) {
      scene.ChangeSomething();
      CScreenLayer::GetSingletonPtr()->DrawFrame();
      ASSERT_EQ(screen.Pixels(), CScene::Expected()) << "seed " << seed << ", frame " << frame;
    }
  }
}

}  // namespace
}  // namespace vask
