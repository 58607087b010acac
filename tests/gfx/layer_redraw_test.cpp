// What a frame draws from the changes alone must be, pixel for pixel, what painting everything from
// nothing gives. Sprites move over each other, fade, turn, hide, change depth and layer and die.

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <random>

#include "support/testpicture.h"

namespace vask::test {
namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 72;

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
      Below(12) == 0 ? ChangeLayer(AnyOf(myLayers)) : ChangeSprite(AnyOf(mySprites));
    }
  }

 private:
  using Layer = std::unique_ptr<CSpriteLayer>;
  using Sprite = std::unique_ptr<CSprite>;
  using Changes = std::vector<std::function<void()>>;

  int Below(int limit) { return static_cast<int>(myRandom() % static_cast<unsigned>(limit)); }
  int Place(int size) { return Below(size + 60) - 40; }
  CRect<int> AnyRect() { return {Place(kWidth), Place(kHeight), Below(60), Below(60)}; }
  std::uint8_t AnyByte() { return static_cast<std::uint8_t>(Below(256)); }
  bool Toss() { return Below(2) == 0; }
  template <typename T>
  auto& AnyOf(T& all) {
    return all[myRandom() % all.size()];
  }
  CSpriteLayer* AnyLayer() {
    const Layer& layer = AnyOf(myLayers);
    return Toss() && layer ? layer.get() : CScreenLayer::GetSingletonPtr();
  }

  // With holes, half-transparent pixels and opaque magenta, keyed or with an alpha channel.
  IPixel* AnyPicture() {
    const bool isKeyed = Toss();
    const int width = 1 + Below(29), height = 1 + Below(29);
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
    CSprite& sprite = *mySprites.emplace_back(std::make_unique<CSprite>());
    sprite.SetImage(AnyPicture());
    sprite.SetPosition(Place(kWidth), Place(kHeight));
    sprite.SetZ(Below(6));
    sprite.SetParent(AnyLayer());
  }
  // An old layer orphans its sprites.
  void RenewLayer(Layer& layer) {
    layer = std::make_unique<CSpriteLayer>();
    layer->SetZ(Below(6));
    layer->SetParent(AnyLayer());
  }

  void ChangeSprite(Sprite& s) {
    // clang-format off
    const Changes changes = {
        [&] { s->SetPosition(Place(kWidth), Place(kHeight)); },
        [&] { s->SetPosition(s->GetX() + Below(9) - 4, s->GetY() + 2); },
        [&] { s->SetZ(Below(6)); },
        [&] { s->SetAlpha(Below(256)); },
        [&] { s->SetRotation(static_cast<float>(Below(720))); },
        [&] { s->SetSize(Below(50), Below(50)); },
        [&] { s->SetRect(AnyRect()); },
        [&] { s->SetScrollRect(AnyRect()); },
        [&] { s->SetImageRect({Below(10), Below(10), Below(20), Below(20)}); },
        [&] { s->SetImage(Below(3) == 0 ? nullptr : AnyPicture()); },
        [&] { s->SetVisible(true), s->SetAlpha(255); },
        [&] { s->SetVisible(Toss()); },
        [&] { s->SetVisible(false), s->SetVisible(true); },
        [&] { s->SetParent(Below(3) == 0 ? nullptr : AnyLayer()); },
        [&] { s->SetParent(nullptr), s->SetParent(AnyLayer()); },
        [&] { s->SetX(5), s->SetVisible(false), s->SetX(50); },
        [&] { AddSprite(), mySprites.pop_back(); },
        [&] { s = std::move(mySprites.back()), mySprites.pop_back(); }};
    // clang-format on
    AnyOf(changes)();
  }
  void ChangeLayer(Layer& layer) {
    const Changes changes = {
        [&] { layer->SetZ(Below(6)); },
        [&] { layer->SetVisible(Toss()); },
        [&] { layer->SetParent(AnyLayer()); },
        [&] { layer->SetImage(AnyPicture()), layer->SetPosition(Below(kWidth), Below(kHeight)); },
        [&] { RenewLayer(layer); },
        [&] { CScreenLayer::GetSingletonPtr()->RefreshAll(); }};
    AnyOf(changes)();
  }

  std::mt19937 myRandom;
  std::array<Layer, 3> myLayers;
  std::vector<Sprite> mySprites;
};

// Everything that is visible, back to front.
void PaintAll(CSpriteLayer& layer, CSprite& canvas) {
  layer.Paint(&canvas);
  const std::vector<CSprite*>& children = layer.GetChildren();
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    auto* inner = dynamic_cast<CSpriteLayer*>(*child);
    inner != nullptr ? PaintAll(*inner, canvas) : (*child)->Paint(&canvas);
  }
}

TEST(LayerRedraw, ShowsWhatPaintingEverythingShows) {
  for (unsigned seed = 1; seed < 13; ++seed) {
    CTestScreen screen(kWidth, kHeight);
    CScene scene(seed);
    for (int frame = 0; frame < 250; ++frame) {
      scene.ChangeSomething();
      CScreenLayer::GetSingletonPtr()->DrawFrame();
      CSprite black;
      black.SetImage(Gfx::NewScreenBuffer(kWidth, kHeight, Gfx::kMagenta));
      PaintAll(*CScreenLayer::GetSingletonPtr(), black);
      ASSERT_EQ(PixelsOf(SurfaceOf(&screen.Picture())), PixelsOf(SurfaceOf(black.GetImage())))
          << "seed " << seed << ", frame " << frame;
    }
  }
}

}  // namespace
}  // namespace vask::test
