// Sprites of all kinds on nested layers, changed at random on a screen whose size and depth change:
// each frame shows what SDL alone draws, sprite by sprite from the back to the front, in an order
// that is kept beside them. Prints how many frames were compared.

#include "fuzz.h"
#include "support/testpicture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <utility>

namespace {

using vask::CSprite;
using vask::CSpriteLayer;
using Rect = vask::CRect<int>;

constexpr int kDepths = 6;
constexpr int kMostFrames = 60;    // of an input
constexpr int kMostRounding = 15;  // by one a sprite
constexpr Rect kHuge{-9, 40, 9000, 20000};

const struct SCount {
  ~SCount() { std::printf("%zu frames compared\n", frames); }
  mutable std::size_t frames = 0;
} theCount;

// The input as a row of choices.
class CChoices {
 public:
  CChoices(const std::uint8_t* data, std::size_t size) : myNext(data), myEnd(data + size) {}
  bool AreLeft() const { return myNext != myEnd; }
  int Below(int limit) { return AreLeft() ? *myNext++ % limit : 0; }
  int Place(int size) { return Below(size + 60) - 40; }
  template <typename T>
  auto& Of(T& all) {
    return all[static_cast<std::size_t>(Below(static_cast<int>(all.size())))];
  }

 private:
  const std::uint8_t* myNext;
  const std::uint8_t* myEnd;
};

// Where the sprites are, by what was done to them.
class COrder {
 public:
  void SetZ(CSprite& sprite, int z) {
    SPlace& place = myPlaces[&sprite];
    place.arrival = z == place.z ? place.arrival : ++myArrivals;
    place.z = z;
    sprite.SetZ(z);
  }
  void SetVisible(CSprite& sprite, bool visible) {
    SPlace& place = myPlaces[&sprite];
    if (place.layer != nullptr && place.isVisible != visible) {
      place.isVisible = visible;
      place.arrival = ++myArrivals;
    }
    sprite.SetVisible(visible);
  }
  void SetParent(CSprite& sprite, CSpriteLayer* layer) {
    if (!IsInside(layer, &sprite)) {
      SPlace& place = myPlaces[&sprite];
      place = {place.z, layer, true, ++myArrivals};
    }
    sprite.SetParent(layer);
  }
  // A new sprite is about to take its place.
  void Forget(const CSprite* sprite) {
    myPlaces.erase(sprite);
    for (auto& [other, place] : myPlaces) {
      place.layer = place.layer == sprite ? nullptr : place.layer;
    }
  }
  // Front to back: of equal depth the last one to arrive is in front.
  std::vector<CSprite*> ChildrenOf(const CSprite& layer) const {
    std::vector<std::pair<const CSprite*, SPlace>> all(myPlaces.begin(), myPlaces.end());
    std::erase_if(all, [&](const auto& item) {
      return item.second.layer != &layer || !item.second.isVisible;
    });
    std::ranges::sort(all, [](const auto& a, const auto& b) {
      return std::pair(a.second.z, b.second.arrival) < std::pair(b.second.z, a.second.arrival);
    });
    std::vector<CSprite*> children;
    std::ranges::transform(all, std::back_inserter(children),
                           [](const auto& item) { return const_cast<CSprite*>(item.first); });
    return children;
  }

 private:
  struct SPlace {
    int z = 0;
    const CSprite* layer = nullptr;
    bool isVisible = true;
    unsigned arrival = 0;
  };

  bool IsInside(const CSprite* sprite, const CSprite* outer) const {
    while (sprite != nullptr && sprite != outer) {
      const auto found = myPlaces.find(sprite);
      sprite = found == myPlaces.end() ? nullptr : found->second.layer;
    }
    return sprite == outer;
  }

  std::map<const CSprite*, SPlace> myPlaces;
  unsigned myArrivals = 0;
};

class CScene {
 public:
  explicit CScene(CChoices& choices) : my(choices) {
    std::ranges::for_each(myLayers, [this](auto& layer) { Renew(layer); });
    std::ranges::for_each(mySprites, [this](auto& sprite) { Renew(sprite); });
  }

  void ChangeSomething() {
    const Sprite& s = my.Of(mySprites);
    Layer& layer = my.Of(myLayers);
    const std::function<void()> changes[] = {
        [&] { s->SetPosition(my.Place(90), my.Place(70)); },
        [&] { s->SetPosition(s->GetX() + my.Below(9) - 4, s->GetY() + 2); },
        [&] { myOrder.SetZ(*s, my.Below(kDepths)); },
        [&] { s->SetAlpha(my.Below(256)); },
        [&] { s->SetAlpha(255); },
        [&] { s->SetRotation(static_cast<float>(my.Below(256) * 3)); },
        [&] { s->SetSize(my.Below(50), my.Below(50)); },
        [&] { s->SetRect(AnyRect()); },
        [&] { s->SetRect(kHuge); },
        [&] { s->SetScrollRect(AnyRect()); },
        [&] { s->SetImageRect(AnyPart()); },
        [&] { s->SetImage(AnyPicture()); },
        [&] { s->SetImage(nullptr); },
        [&] { myOrder.SetVisible(*s, my.Below(4) > 0); },
        [&] { myOrder.SetParent(*s, AnyLayer()); },
        [&] { myOrder.SetParent(*s, nullptr); },
        [&] { Renew(my.Of(mySprites)); },
        [&] { myOrder.SetZ(*layer, my.Below(kDepths)); },
        [&] { myOrder.SetVisible(*layer, my.Below(4) > 0); },
        [&] { myOrder.SetParent(*layer, AnyLayer()); },
        [&] { layer->SetImage(AnyPicture()); },
        [&] { Renew(layer); },
        [&] { vask::CScreenLayer::GetSingletonPtr()->RefreshAll(); },
    };
    changes[my.Below(std::size(changes))]();
  }
  const COrder& GetOrder() const { return myOrder; }

 private:
  using Layer = std::unique_ptr<CSpriteLayer>;
  using Sprite = std::unique_ptr<CSprite>;

  Rect AnyRect() { return {my.Place(90), my.Place(70), 1 + my.Below(60), my.Below(60)}; }
  Rect AnyPart() { return {my.Below(10), my.Below(10), my.Below(50), my.Below(50)}; }
  std::uint8_t AnyByte() { return static_cast<std::uint8_t>(my.Below(256)); }
  CSpriteLayer* AnyLayer() {
    const Layer& layer = my.Of(myLayers);
    return my.Below(2) == 0 && layer ? layer.get() : vask::CScreenLayer::GetSingletonPtr();
  }

  // Of 8, 16 or 32 bits, the last ones with or without an alpha channel; with holes and margins.
  vask::IPixel* AnyPicture() {
    static constexpr std::array<vask::sdl::SPixelFormat, 4> kFormats{
        {{8},
         {16, 0xF800, 0x7E0, 0x1F},
         {32, 0xFF0000, 0xFF00, 0xFF},
         {32, 0xFF0000, 0xFF00, 0xFF, 0xFF000000}}};
    const vask::sdl::SPixelFormat& format = my.Of(kFormats);
    SDL_Surface* surface =
        vask::sdl::NewSurface(1 + my.Below(49), 1 + my.Below(49), format).release();
    SDL_Color palette[3] = {{AnyByte(), AnyByte(), AnyByte(), 0}, {255, 0, 255, 0}, {9, 0, 9, 0}};
    SDL_SetColors(surface, palette, 0, 3);
    auto* picture = new vask::CPixelSDL(surface, vask::CColor(255, 0, 255), "");
    const vask::CColor colors[] = {
        {palette[0].r, palette[0].g, palette[0].b, AnyByte()}, {255, 0, 255}, {9, 0, 9}};
    const Rect drawn = AnyPart();
    for (int i = 0; i < surface->w * surface->h; ++i) {
      if (drawn.Contains(i % surface->w, i / surface->w)) {
        picture->PutPixel(i % surface->w, i / surface->w, colors[i % 7 % 3]);
      }
    }
    return picture;
  }

  template <typename T>
  void Renew(std::unique_ptr<T>& sprite) {
    myOrder.Forget(sprite.get());
    sprite = std::make_unique<T>();
    sprite->SetImage(AnyPicture());
    sprite->SetPosition(my.Place(90), my.Place(70));
    myOrder.SetZ(*sprite, my.Below(kDepths));
    myOrder.SetParent(*sprite, AnyLayer());
  }

  CChoices& my;
  COrder myOrder;
  std::array<Layer, 3> myLayers;
  std::array<Sprite, 12> mySprites;
};

SDL_Rect ToSdl(const Rect& rect) {
  return {static_cast<Sint16>(rect.x), static_cast<Sint16>(rect.y), static_cast<Uint16>(rect.w),
          static_cast<Uint16>(rect.h)};
}

// The reference.
void Paint(const CSprite& sprite, SDL_Surface* canvas) {
  const vask::IPixel& image = *sprite.GetImage();
  const Rect rect = sprite.GetRect();
  const Rect scroll = sprite.GetScrollRect() == Rect{} ? rect : sprite.GetScrollRect();
  const Rect shown = rect.Intersection(scroll).Intersection(vask::sdl::Bounds(*canvas));
  if (image.IsEmpty() || shown.IsEmpty()) {
    return;
  }
  SDL_Rect clip = ToSdl(shown);
  SDL_Rect from = ToSdl(image.GetRect());
  SDL_Rect to = ToSdl(rect);
  SDL_SetClipRect(canvas, &clip);
  SDL_UpperBlit(vask::test::SurfaceOf(image), &from, canvas, &to);
}

void PaintAll(const CSpriteLayer& layer, const COrder& order, SDL_Surface* canvas) {
  const std::vector<CSprite*> children = order.ChildrenOf(layer);
  vask::fuzz::Require(children == layer.GetChildren());
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    Paint(**child, canvas);
    if (const auto* inner = dynamic_cast<const CSpriteLayer*>(*child)) {
      PaintAll(*inner, order, canvas);
    }
  }
}

// The byte beside the colours of a pixel may be anything.
bool IsSameColor(const SDL_Surface& one, const SDL_Surface& other, int x, int y) {
  // SDL 2 blends with another rounding than the engine and the classic library.
  static const int slack = SDL_Linked_Version()->patch < 50 ? 0 : kMostRounding;
  std::array<Uint8, 3> a{}, b{};
  SDL_GetRGB(vask::sdl::ReadPixel(one, x, y), one.format, &a[0], &a[1], &a[2]);
  SDL_GetRGB(vask::sdl::ReadPixel(other, x, y), other.format, &b[0], &b[1], &b[2]);
  return std::ranges::equal(a, b, [](int c, int d) { return std::abs(c - d) <= slack; });
}

void Compare(const SDL_Surface& screen, const COrder& order) {
  const auto canvas = vask::sdl::NewSurface(screen.w, screen.h, vask::sdl::FormatOf(screen));
  PaintAll(vask::CScreenLayer::GetSingleton(), order, canvas.get());
  for (int y = 0; y < screen.h; ++y) {
    const auto bytes = static_cast<std::size_t>(screen.w * screen.format->BytesPerPixel);
    const bool isSame = std::memcmp(vask::sdl::RowAddress(screen, y),
                                    vask::sdl::RowAddress(*canvas, y), bytes) == 0;
    for (int x = 0; !isSame && x < screen.w; ++x) {
      vask::fuzz::Require(IsSameColor(screen, *canvas, x, y));
    }
  }
  ++theCount.frames;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static auto& screen = *new vask::test::CTestScreen(96, 72);
  CChoices choices(data, size);
  {
    CScene scene(choices);
    for (int frame = 0; choices.AreLeft() && frame < kMostFrames; ++frame) {
      if (choices.Below(20) == 0) {
        const int depths[] = {16, 24, 32};
        screen.Resize(40 + choices.Below(80), 30 + choices.Below(60), depths[choices.Below(3)]);
        vask::CScreenLayer::GetSingletonPtr()->RefreshAll();
      }
      for (int changes = choices.Below(6); changes > 0; --changes) {
        scene.ChangeSomething();
      }
      vask::CScreenLayer::GetSingletonPtr()->DrawFrame();
      Compare(*screen.Picture().GetSurface(), scene.GetOrder());
    }
  }
  vask::CScreenLayer::DeleteSingleton();
  return 0;
}
