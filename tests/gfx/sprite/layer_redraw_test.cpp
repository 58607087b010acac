// What a frame draws from the changes alone must be, pixel for pixel, what painting everything from
// nothing gives. Sprites move over each other, fade, turn, hide, change depth and layer and die;
// some rectangles are larger than any picture, some sizes are nothing.

#include "gfx/sprite/spritetypes.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <random>

namespace vask::test {
namespace {

constexpr int kWidth = 96, kHeight = 72;

class CScene {
 public:
  explicit CScene(unsigned seed) : myRandom(seed) {}
  void ChangeSomething() {
    Sprite& s = AnyOf(mySprites);
    Layer& layer = AnyOf(myLayers);
    s ? void() : Renew(s);
    layer ? void() : Renew(layer);
    // clang-format off
    std::vector<std::function<void()>> changes = {
        [&] { s->SetPosition(Place(kWidth), Place(kHeight)); },
        [&] { s->SetPosition(s->GetX() + Below(9) - 4, s->GetY() + 2); },
        [&] { s->SetZ(Below(6)); }, [&] { s->SetAlpha(Below(256)); },
        [&] { s->SetRotation(static_cast<float>(Below(720))); },
        [&] { s->SetSize(Below(50), Below(50)); }, [&] { s->SetRect(AnyRect()); },
        [&] { s->SetRect({Place(kWidth), Place(kHeight), 9000, 20000}); },
        [&] { s->SetScrollRect(Toss() ? AnyRect() : CRect<int>{9, 9, kWidth, kHeight}); },
        [&] { s->SetImageRect({Below(10), Below(10), Below(50), Below(50)}); },
        [&] { s->SetImage(Below(9) == 0 ? nullptr : AnyPicture()); },
        [&] { s->SetVisible(true), s->SetAlpha(255); }, [&] { s->SetVisible(Below(4) > 0); },
        [&] { s->SetVisible(false), s->SetVisible(true); },
        [&] { s->SetParent(Below(9) == 0 ? nullptr : AnyLayer()); },
        [&] { s->SetParent(nullptr), s->SetParent(AnyLayer()); },
        [&] { s->SetX(5), s->SetVisible(false), s->SetX(50); },
        [&] { s.reset(); }, [&] { Renew(s); }, [&] { Renew(s); },
        [&] { layer->SetZ(Below(6)); }, [&] { layer->SetVisible(Below(4) > 0); },
        [&] { layer->SetParent(AnyLayer()); }, [&] { Toss() ? Renew(layer) : void(); },
        [&] { layer->SetImage(Toss() ? nullptr : AnyPicture()); },
        [&] { Below(9) == 0 ? CScreenLayer::GetSingletonPtr()->RefreshAll() : void(); }};
    // clang-format on
    AnyOf(changes)();
  }

 private:
  using Layer = std::unique_ptr<CSpriteLayer>;
  using Sprite = std::unique_ptr<CSprite>;

  int Below(int limit) { return static_cast<int>(myRandom() % static_cast<unsigned>(limit)); }
  int Place(int size) { return Below(size + 60) - 40; }
  CRect<int> AnyRect() { return {Place(kWidth), Place(kHeight), Below(60), Below(60)}; }
  std::uint8_t AnyByte() { return static_cast<std::uint8_t>(Below(256)); }
  bool Toss() { return Below(2) == 0; }
  template <typename T>
  typename T::reference AnyOf(T& all) {
    return all[myRandom() % all.size()];
  }
  CSpriteLayer* AnyLayer() {
    const Layer& layer = AnyOf(myLayers);
    return Toss() && layer ? layer.get() : CScreenLayer::GetSingletonPtr();
  }

  // With holes, half-transparent pixels and opaque magenta, keyed or with an alpha channel.
  IPixel* AnyPicture() {
    const bool isKeyed = Toss();
    const int w = 1 + Below(49), h = 1 + Below(49);
    IPixel* picture = isKeyed ? Gfx::NewScreenBuffer(w, h, Gfx::kMagenta) : Gfx::NewBuffer(w, h);
    const std::uint8_t alpha = isKeyed || Toss() ? 255 : AnyByte();
    const CColor color(AnyByte(), AnyByte(), AnyByte(), alpha);
    const CColor key(255, 0, 255), none(0, 0, 0, 0);
    for (int i = 0; i < w * h; ++i) {
      picture->PutPixel(i % w, i / w, i % 7 == 0 ? none : i % 3 == 0 ? key : color);
    }
    return picture;
  }

  // An old layer orphans its sprites.
  template <typename T>
  void Renew(std::unique_ptr<T>& sprite) {
    sprite = std::make_unique<T>();
    sprite->SetImage(AnyPicture());
    sprite->SetPosition(Place(kWidth), Place(kHeight));
    sprite->SetZ(Below(6));
    sprite->SetParent(AnyLayer());
  }

  std::mt19937 myRandom;
  std::array<Layer, 3> myLayers;
  std::array<Sprite, 12> mySprites;
};

// What is visible of the sprite, and of a layer's children back to front.
void PaintAll(CSprite& sprite, IPixel* canvas) {
  const CRect<int> rect = sprite.GetRect(), scroll = sprite.GetScrollRect();
  const CRect<int> part = scroll == CRect<int>{} ? rect : rect.Intersection(scroll);
  if (sprite.GetTypeId() != kScreenLayerSprite.number) {
    sprite.GetImage()->Blit(canvas, {part.x - rect.x, part.y - rect.y, part.w, part.h}, part);
  }
  if (auto* layer = dynamic_cast<CSpriteLayer*>(&sprite)) {
    std::for_each(layer->GetChildren().rbegin(), layer->GetChildren().rend(),
                  [=](CSprite* child) { PaintAll(*child, canvas); });
  }
}

TEST(LayerRedraw, ShowsWhatPaintingEverythingShows) {
  for (unsigned seed = 1; seed < 13; ++seed) {
    CTestScreen screen(kWidth, kHeight);
    screen.Resize(kWidth, kHeight, 16);
    CScene scene(seed);
    for (int frame = -30; frame < 250; ++frame) {
      if (frame == 0) {  // from here on what was saved at 16 bits would lack colours
        screen.Resize(kWidth, kHeight);
        CScreenLayer::GetSingletonPtr()->RefreshAll();
      }
      for (int changes = std::abs(frame % 6); changes > 0; --changes) {
        scene.ChangeSomething();
      }
      CScreenLayer::GetSingletonPtr()->DrawFrame();
      if (frame < 0) {
        continue;
      }
      const Gfx::ImagePtr canvas(Gfx::NewScreenBuffer(kWidth, kHeight, Gfx::kMagenta));
      PaintAll(*CScreenLayer::GetSingletonPtr(), canvas.get());
      ASSERT_EQ(PixelsOf(screen.Picture()), PixelsOf(*canvas)) << "seed " << seed << ", " << frame;
    }
  }
}

}  // namespace
}  // namespace vask::test
