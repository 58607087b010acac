// What a frame draws from the changes alone must be, pixel for pixel, what painting everything from
// nothing gives. Sprites move over each other, fade, turn, hide, change depth and layer and die;
// some rectangles are larger than any picture, some sizes are nothing.

#include "support/testpicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <random>

namespace vask::test {
namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 72;
constexpr int kDepths = 6;
constexpr Rect kScreen{0, 0, kWidth, kHeight};
constexpr Rect kHuge{-9, 20, 9000, 20000};

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
        [&] { s->SetAlpha(Below(512)); },  // mostly opaque
        [&] { s->SetRotation(static_cast<float>(Below(720))); },
        [&] { s->SetSize(Below(50), Below(50)); },
        [&] { s->SetRect(AnyRect()); },
        [&] { s->SetScrollRect(AnyRect()); },
        [&] { s->SetImageRect(AnyPart()); },
        [&] { s->SetImage(AnyPicture()); },
        [&] { s->SetImage(nullptr); },
        [&] { s->SetVisible(Below(4) > 0); },
        [&] {
          s->SetVisible(false);
          s->SetX(50);
          s->SetVisible(true);
        },
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
  Rect AnyRect() {
    return Below(2) == 0 ? kHuge : Rect{Place(kWidth), Place(kHeight), 1 + Below(60), Below(60)};
  }
  Rect AnyPart() { return {Below(10), Below(10), Below(50), Below(50)}; }
  std::uint8_t AnyByte() { return static_cast<std::uint8_t>(Below(256)); }
  template <typename T>
  typename T::reference AnyOf(T& all) {
    return all[myRandom() % all.size()];
  }
  CSpriteLayer* AnyLayer() {
    const Layer& layer = AnyOf(myLayers);
    return Below(2) == 0 && layer ? layer.get() : CScreenLayer::GetSingletonPtr();
  }

  // With holes, half-transparent pixels and opaque magenta, keyed or with an alpha channel.
  IPixel* AnyPicture() {
    const bool isKeyed = Below(2) == 0;
    const std::uint8_t alpha = isKeyed ? 255 : AnyByte();
    const CColor colors[] = {{AnyByte(), AnyByte(), AnyByte(), alpha}, {255, 0, 255}, {0, 0, 0, 0}};
    const sdl::SPixelFormat format{32, 0xFF0000, 0xFF00, 0xFF, isKeyed ? 0 : 0xFF000000};
    SDL_Surface* surface = sdl::NewSurface(1 + Below(49), 1 + Below(49), format).release();
    auto* picture = new CPixelSDL(surface, isKeyed ? colors[1] : CColor(1, 2, 3), "");
    for (int i = 0; i < surface->w * surface->h; ++i) {
      picture->PutPixel(i % surface->w, i / surface->w, colors[i % 7 % 3]);
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

void Paint(const CSprite& sprite, std::vector<std::uint32_t>& canvas) {
  const IPixel& image = *sprite.GetImage();
  const Rect rect = sprite.GetRect();
  const Rect clip = sprite.GetScrollRect() == Rect{} ? kScreen : sprite.GetScrollRect();
  const Rect shown{0, 0, std::min(rect.w, image.GetWidth()), std::min(rect.h, image.GetHeight())};
  const auto pixels = image.IsEmpty() ? std::vector<std::uint32_t>() : PixelsOf(image);
  for (int i = 0; i < static_cast<int>(pixels.size()); ++i) {
    const int u = i % image.GetSurfaceWidth() - image.GetX();
    const int v = i / image.GetSurfaceWidth() - image.GetY();
    const int x = rect.x + u;
    const int y = rect.y + v;
    if (shown.Contains(u, v) && kScreen.Contains(x, y) && clip.Contains(x, y)) {
      std::uint32_t& pixel = canvas[static_cast<std::size_t>(y * kWidth + x)];
      pixel = DrawnOver(pixels[static_cast<std::size_t>(i)], pixel, *SurfaceOf(image));
    }
  }
}

void PaintAll(CSpriteLayer& layer, std::vector<std::uint32_t>& canvas) {
  std::vector<CSprite*> children = layer.GetChildren();
  std::ranges::reverse(children);
  for (CSprite* child : children) {
    Paint(*child, canvas);
    if (auto* inner = dynamic_cast<CSpriteLayer*>(child)) {
      PaintAll(*inner, canvas);
    }
  }
}

TEST(LayerRedraw, ShowsWhatPaintingEverythingShows) {
  for (unsigned seed = 1; seed < 9; ++seed) {
    CTestScreen screen(kWidth, kHeight);
    CScene scene(seed);
    CScreenLayer& layer = CScreenLayer::GetSingleton();
    screen.Resize(kWidth, kHeight, 16);
    for (int frame = -30; frame < 250; ++frame) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", frame " << frame);
      if (frame == 0) {  // from here on what was saved at 16 bits would lack colours
        screen.Resize(kWidth, kHeight);
        layer.RefreshAll();
      }
      for (int changes = std::abs(frame % 6); changes > 0; --changes) {
        scene.ChangeSomething();
      }
      layer.DrawFrame();
      if (frame < 0) {
        continue;
      }
      std::vector<std::uint32_t> expected(kWidth * kHeight);
      PaintAll(layer, expected);
      ASSERT_EQ(PixelsOf(screen.Picture()), expected);
    }
  }
}

}  // namespace
}  // namespace vask::test
