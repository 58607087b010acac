// What a frame draws from the changes alone must be, pixel for pixel, what painting everything from
// nothing gives. Sprites move over each other, fade, turn, hide, change depth and layer and die;
// some rectangles are larger than any picture, some sizes are nothing.

#include "gfx/sprite/spritetypes.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <ranges>

namespace vask::test {
namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 72;
constexpr int kDepths = 6;

class CScene {
 public:
  explicit CScene(unsigned seed) : myRandom(seed) {
    std::ranges::for_each(myLayers, [this](auto& layer) { Renew(layer); });
    std::ranges::for_each(mySprites, [this](auto& sprite) { Renew(sprite); });
  }

  void ChangeSomething() {
    Sprite& s = AnyOf(mySprites);
    Layer& layer = AnyOf(myLayers);
    std::vector<std::function<void()>> changes = {
        [&] { s->SetPosition(Place(kWidth), Place(kHeight)); },
        [&] { s->SetPosition(s->GetX() + Below(9) - 4, s->GetY() + 2); },
        [&] { s->SetZ(Below(kDepths)); },
        [&] { s->SetAlpha(Below(256)); },
        [&] { s->SetAlpha(255); },
        [&] { s->SetRotation(static_cast<float>(Below(720))); },
        [&] { s->SetSize(Below(50), Below(50)); },
        [&] { s->SetRect(AnyRect()); },
        [&] {
          s->SetRect({Place(kWidth), Place(kHeight), 9000, 20000});
        },
        [&] { s->SetScrollRect(AnyRect()); },
        [&] {
          s->SetScrollRect({9, 9, kWidth, kHeight});
        },
        [&] {
          s->SetImageRect({Below(10), Below(10), Below(50), Below(50)});
        },
        [&] { s->SetImage(AnyPicture()); },
        [&] { s->SetImage(nullptr); },
        [&] { s->SetVisible(Below(4) > 0); },
        [&] { HideMoveAndShow(*s); },
        [&] { s->SetParent(AnyLayer()); },
        [&] { s->SetParent(nullptr); },
        [&] { Renew(s); },
        [&] { layer->SetZ(Below(kDepths)); },
        [&] { layer->SetVisible(Below(4) > 0); },
        [&] { layer->SetParent(AnyLayer()); },
        [&] { Renew(layer); },
        [&] { layer->SetImage(AnyPicture()); },
        [&] { CScreenLayer::GetSingletonPtr()->RefreshAll(); },
    };
    AnyOf(changes)();
  }

 private:
  using Layer = std::unique_ptr<CSpriteLayer>;
  using Sprite = std::unique_ptr<CSprite>;

  int Below(int limit) { return static_cast<int>(myRandom() % static_cast<unsigned>(limit)); }
  int Place(int size) { return Below(size + 60) - 40; }
  CRect<int> AnyRect() { return {Place(kWidth), Place(kHeight), 1 + Below(60), Below(60)}; }
  std::uint8_t AnyByte() { return static_cast<std::uint8_t>(Below(256)); }
  template <typename T>
  typename T::reference AnyOf(T& all) {
    return all[myRandom() % all.size()];
  }
  CSpriteLayer* AnyLayer() {
    const Layer& layer = AnyOf(myLayers);
    return Below(2) == 0 && layer ? layer.get() : CScreenLayer::GetSingletonPtr();
  }

  static void HideMoveAndShow(CSprite& sprite) {
    sprite.SetVisible(false);
    sprite.SetX(50);
    sprite.SetVisible(true);
  }

  // With holes, half-transparent pixels and opaque magenta, keyed or with an alpha channel.
  IPixel* AnyPicture() {
    const bool isKeyed = Below(2) == 0;
    const int w = 1 + Below(49);
    const int h = 1 + Below(49);
    const std::uint8_t alpha = isKeyed ? 255 : AnyByte();
    const CColor colors[] = {{AnyByte(), AnyByte(), AnyByte(), alpha}, {255, 0, 255}, {0, 0, 0, 0}};
    const sdl::SPixelFormat format{32, 0xFF0000, 0xFF00, 0xFF, isKeyed ? 0 : 0xFF000000};
    SDL_Surface* surface = sdl::NewSurface(w, h, format).release();
    auto* picture = new CPixelSDL(surface, isKeyed ? colors[1] : CColor(1, 2, 3), "");
    for (int i = 0; i < w * h; ++i) {
      picture->PutPixel(i % w, i / w, colors[i % 7 % 3]);
    }
    return picture;
  }

  // An old layer orphans its sprites.
  template <typename T>
  void Renew(std::unique_ptr<T>& sprite) {
    sprite = std::make_unique<T>();
    sprite->SetImage(AnyPicture());
    sprite->SetPosition(Place(kWidth), Place(kHeight));
    sprite->SetZ(Below(kDepths));
    sprite->SetParent(AnyLayer());
  }

  std::mt19937 myRandom;
  std::array<Layer, 3> myLayers;
  std::array<Sprite, 12> mySprites;
};

// The reference: one pixel over another as SDL draws it, and a sprite pixel by pixel, with the
// children of a layer from back to front.
std::uint32_t DrawnOver(std::uint32_t source, std::uint32_t target, const SDL_Surface& surface) {
  if (surface.format->Amask == 0) {
    const bool isKeyed = (surface.flags & SDL_SRCCOLORKEY) != 0;
    return isKeyed && source == surface.format->colorkey ? target : source;
  }
  const int alpha = static_cast<int>(source >> 24);
  std::uint32_t result = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const int from = static_cast<int>(source >> shift & 0xFF);
    const int onto = static_cast<int>(target >> shift & 0xFF);
    const int color = alpha == 255 ? from : onto + ((from - onto) * alpha >> 8);
    result |= static_cast<std::uint32_t>(color) << shift;
  }
  return result;
}

void PaintAll(CSprite& sprite, std::vector<std::uint32_t>& canvas) {
  const IPixel& image = *sprite.GetImage();
  const CRect<int> rect = sprite.GetRect();
  const CRect<int> scroll = sprite.GetScrollRect();
  const bool isClipped = scroll != CRect<int>{};
  const bool isScreen = sprite.GetTypeId() == kScreenLayerSprite.number;
  const auto pixels = image.IsEmpty() || isScreen ? std::vector<std::uint32_t>() : PixelsOf(image);
  for (int i = 0; !pixels.empty() && i < image.GetWidth() * image.GetHeight(); ++i) {
    const int u = i % image.GetWidth();
    const int v = i / image.GetWidth();
    const int x = rect.x + u;
    const int y = rect.y + v;
    if (u < rect.w && v < rect.h && CRect<int>{0, 0, kWidth, kHeight}.Contains(x, y) &&
        (!isClipped || scroll.Contains(x, y))) {
      const int at = (image.GetY() + v) * image.GetSurfaceWidth() + image.GetX() + u;
      std::uint32_t& pixel = canvas[static_cast<std::size_t>(y * kWidth + x)];
      pixel = DrawnOver(pixels[static_cast<std::size_t>(at)], pixel, *SurfaceOf(image));
    }
  }
  if (const auto* layer = dynamic_cast<CSpriteLayer*>(&sprite)) {
    for (CSprite* child : layer->GetChildren() | std::views::reverse) {
      PaintAll(*child, canvas);
    }
  }
}

TEST(LayerRedraw, ShowsWhatPaintingEverythingShows) {
  for (unsigned seed = 1; seed < 9; ++seed) {
    CTestScreen screen(kWidth, kHeight);
    screen.Resize(kWidth, kHeight, 16);
    CScene scene(seed);
    for (int frame = -30; frame < 250; ++frame) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", frame " << frame);
      if (frame == 0) {  // from here on what was saved at 16 bits would lack colours
        screen.Resize(kWidth, kHeight);
        CScreenLayer::GetSingletonPtr()->RefreshAll();
      }
      for (int changes = std::abs(frame % 6); changes > 0; --changes) {
        scene.ChangeSomething();
      }
      CScreenLayer::GetSingletonPtr()->DrawFrame();
      if (frame >= 0) {
        std::vector<std::uint32_t> expected(kWidth * kHeight);
        PaintAll(*CScreenLayer::GetSingletonPtr(), expected);
        ASSERT_EQ(PixelsOf(screen.Picture()), expected);
      }
    }
  }
}

}  // namespace
}  // namespace vask::test
