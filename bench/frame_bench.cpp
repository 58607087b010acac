#include "gfx/animation/animatedsprite.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"
#include "stage.h"

#include <SDL_gfxBlitFunc.h>
#include <SDL_rotozoom.h>
#include <benchmark/benchmark.h>
#include <pixman.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

// One frame of play without the flip, on SDL's off-screen driver: drawn by the sprites and layers,
// and drawn by the plain calls of SDL and SDL_gfx, with a memcpy of as many bytes between. The
// sides take turns, and each counter is a median.

namespace vask {
namespace {

using Clock = std::chrono::steady_clock;
using SurfacePtr = sdl::SurfacePtr;

constexpr int kFrames = 24;  // in one pass: the kitten turns once
constexpr float kTurn = 15.0F;
constexpr int kBytesPerPixel = 8 + 8 + 12;  // restored, saved, painted

constexpr int kBoards = 3;
constexpr int kNumbers = 2;
constexpr char kNumberText[] = "+50";
const CRect<int> kMonster{0, 300, 64, 64};
const CRect<int> kKitten{0, 150, 40, 40};
const CRect<int> kBoard{20, 10, 200, 50};
const CRect<int> kNumber{300, 0, 80, 40};
const CRect<int> kSign{250, 200, 300, 100};

// What moves, by the number of the frame.
int MonsterX(int frame) { return 100 + 3 * frame; }
int KittenX(int frame) { return 200 + 5 * frame; }
int SignY(int frame) { return kSign.y + 2 * frame; }
int NumberY(int frame) { return 250 - 2 * frame; }
int NumberAlpha(int frame) { return 250 - frame / 2 * 8; }
int BoardX(int board) { return kBoard.x + board * (kBoard.w + 20); }
int NumberX(int number) { return kNumber.x + number * (kNumber.w + 20); }
std::string BoardText(int board, int frame) {
  return std::to_string(board == 0 ? 12345 + frame : 10 * board);
}

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// A soft-edged ellipse with clear corners.
IPixel* NewBlob(const CRect<int>& size, std::uint8_t blue, double strength = 1.0) {
  IPixel* picture = Gfx::NewBuffer(size.w, size.h);
  for (int y = 0; y < size.h; ++y) {
    for (int x = 0; x < size.w; ++x) {
      const double distance = std::hypot((x + 0.5) * 2 / size.w - 1, (y + 0.5) * 2 / size.h - 1);
      CColor color(static_cast<std::uint8_t>(255 * x / size.w),
                   static_cast<std::uint8_t>(255 * y / size.h), blue);
      const double alpha = std::clamp((1 - distance) * 6, 0.0, 1.0) * strength;
      color.a = static_cast<std::uint8_t>(255 * alpha);
      picture->PutPixel(x, y, color);
    }
  }
  return picture;
}

SDL_Surface* SurfaceOf(IPixel* image) { return dynamic_cast<CPixelSDL&>(*image).GetSurface(); }

// The screen, and a font for the numbers, which are in the folder of the game.
class CFrameStage : public CStage {
 public:
  CFrameStage() : CStage(BRUMBLE_RUNTIME_FOLDER) {}
};

class CSpriteFrames {
 public:
  // Without a kitten somebody else draws one.
  explicit CSpriteFrames(bool hasKitten = true) {
    Add(new CSprite, 1000)->SetImage(NewBlob({0, 0, kWidth, kHeight}, 40));
    myMonster = Add(new CSprite, 65);
    myMonster->SetImage(NewBlob(kMonster, 200));
    if (hasKitten) {
      myKitten = Add(new CSprite, 60);
      myKitten->SetImage(NewBlob(kKitten, 255));
    }
    for (int i = 0; i < kBoards; ++i) {
      mySprites.push_back(NewText(kBoard, BoardX(i), kBoard.y, 40));
      myBoards.push_back(mySprites.back().Get());
    }
    mySign = Add(new CSprite, 30);
    mySign->SetImage(NewBlob(kSign, 90));
    for (int i = 0; i < kNumbers; ++i) {
      mySprites.push_back(NewText(kNumber, NumberX(i), 0, 20));
      myNumbers.push_back(mySprites.back().Get());
      myNumbers.back()->SetText(kNumberText);
    }
  }

  void Draw(int frame) {
    myMonster->SetPosition(MonsterX(frame), kMonster.y);
    if (myKitten != nullptr) {
      myKitten->SetPosition(KittenX(frame), kKitten.y);
      myKitten->SetRotation(kTurn * static_cast<float>(frame + 1));
    }
    mySign->SetPosition(kSign.x, SignY(frame));
    for (std::size_t i = 0; i < myBoards.size(); ++i) {
      myBoards[i]->SetText(BoardText(static_cast<int>(i), frame));
    }
    for (std::size_t i = 0; i < myNumbers.size(); ++i) {
      myNumbers[i]->SetPosition(NumberX(static_cast<int>(i)), NumberY(frame));
      myNumbers[i]->SetAlpha(NumberAlpha(frame));
    }
    CScreenLayer::GetSingletonPtr()->DrawFrame();
  }

  // Pixels of all sprites that a frame draws again.
  int DrawnPixels() const {
    int pixels = 0;
    for (std::size_t i = 1; i < mySprites.size(); ++i) {
      const CRect<int> rect = mySprites[i]->GetRect();
      pixels += rect.w * rect.h;
    }
    return pixels;
  }

 private:
  CSprite* Add(CSprite* sprite, int z) {
    mySprites.emplace_back(sprite);
    sprite->SetZ(z);
    sprite->SetParent(CScreenLayer::GetSingletonPtr());
    return sprite;
  }
  static CSpritePtr NewText(const CRect<int>& size, int x, int y, int z) {
    CSpritePtr text(new CTextSprite(LoadFont("data/gfx/numbers.ogf"), size.w, size.h));
    text->SetPosition(x, y);
    text->SetZ(z);
    text->SetParent(CScreenLayer::GetSingletonPtr());
    return text;
  }

  std::vector<CSpritePtr> mySprites;  // the first is the background
  CSprite* myMonster;
  CSprite* myKitten = nullptr;
  CSprite* mySign;
  std::vector<CSprite*> myBoards;
  std::vector<CSprite*> myNumbers;
};

// A picture on the screen, as one keeps it without an engine.
struct SItem {
  SurfacePtr picture;
  int x = 0;
  int y = 0;
  SurfacePtr saved;  // from under it
  SDL_Rect at{};     // where it was drawn
  void Restore(SDL_Surface* screen) {
    SDL_Rect from{0, 0, at.w, at.h};
    SDL_Rect to = at;
    SDL_UpperBlit(saved.get(), &from, screen, &to);
  }
  void Draw(SDL_Surface* screen) {
    at = {static_cast<Sint16>(x), static_cast<Sint16>(y), static_cast<Uint16>(picture->w),
          static_cast<Uint16>(picture->h)};
    SDL_Rect from = at;
    SDL_UpperBlit(screen, &from, saved.get(), nullptr);
    SDL_Rect to = at;
    SDL_UpperBlit(picture.get(), nullptr, screen, &to);
  }
};

class CPlainFrames {
 public:
  CPlainFrames()
      : myScreen(sdl::NewSurface(kWidth, kHeight, sdl::FormatOf(*SDL_GetVideoSurface()))),
        myKittenPicture(TakePicture(NewBlob(kKitten, 255))),
        myFont(LoadFont("data/gfx/numbers.ogf")),
        myNumberPicture(NewText(kNumber, kNumberText)) {
    const SurfacePtr background = TakePicture(NewBlob({0, 0, kWidth, kHeight}, 40));
    SDL_UpperBlit(background.get(), nullptr, myScreen.get(), nullptr);
    Add(TakePicture(NewBlob(kMonster, 200)), MonsterX(0), kMonster.y);
    Add(Turned(0.0), KittenX(0), kKitten.y);
    for (int i = 0; i < kBoards; ++i) {
      Add(NewText(kBoard, BoardText(i, 0)), BoardX(i), kBoard.y);
    }
    Add(TakePicture(NewBlob(kSign, 90)), kSign.x, kSign.y);
    for (int i = 0; i < kNumbers; ++i) {
      Add(NewText(kNumber, kNumberText), NumberX(i), 0);
    }
    for (char digit = '0'; digit <= '9'; ++digit) {
      myDigits.push_back(
          NewText({0, 0, myFont->GetTextWidth(std::string(1, digit)), myFont->GetLineHeight()},
                  std::string(1, digit)));
      SDL_SetAlpha(myDigits.back().get(), 0, SDL_ALPHA_OPAQUE);  // copied as they are
    }
  }

  void Draw(int frame) {
    for (std::size_t i = myItems.size(); i-- > 0;) {
      myItems[i].Restore(myScreen.get());
    }
    myItems[kMonsterItem].x = MonsterX(frame);
    SItem& kitten = myItems[kKittenItem];
    kitten.picture = Turned(kTurn * static_cast<double>(frame + 1));
    kitten.x = KittenX(frame);
    WriteBoard(*myItems[kFirstBoardItem].picture, BoardText(0, frame));
    myItems[kSignItem].y = SignY(frame);
    for (std::size_t i = kSignItem + 1; i < myItems.size(); ++i) {
      if (frame % 2 == 0) {
        myItems[i].picture.reset(SDL_DisplayFormatAlpha(myNumberPicture.get()));
        SDL_gfxMultiplyAlpha(myItems[i].picture.get(), static_cast<Uint8>(NumberAlpha(frame)));
      }
      myItems[i].y = NumberY(frame);
    }
    for (SItem& item : myItems) {
      item.Draw(myScreen.get());
    }
  }

  SDL_Surface* Screen() const { return myScreen.get(); }

 private:
  enum EItem : std::size_t {
    kMonsterItem,
    kKittenItem,
    kFirstBoardItem,
    kSignItem = kFirstBoardItem + kBoards
  };

  // A surface of its own with the picture's pixels.
  static SurfacePtr TakePicture(IPixel* image) {
    const Gfx::ImagePtr owner(image);
    return SurfacePtr(SDL_DisplayFormatAlpha(SurfaceOf(image)));
  }
  void Add(SurfacePtr picture, int x, int y) {
    SItem item;
    item.saved = sdl::NewSurface(picture->w + 20, picture->h + 20, sdl::FormatOf(*myScreen));
    item.picture = std::move(picture);
    item.x = x;
    item.y = y;
    item.Draw(myScreen.get());
    myItems.push_back(std::move(item));
  }
  SurfacePtr NewText(const CRect<int>& size, const std::string& text) const {
    IPixel* picture = Gfx::NewBuffer(size.w, size.h);
    myFont->WriteLine(picture, text, 0, 0);
    return TakePicture(picture);
  }
  SurfacePtr Turned(double degrees) const {
    return SurfacePtr(rotozoomSurface(myKittenPicture.get(), degrees, 1.0, SMOOTHING_ON));
  }
  void WriteBoard(SDL_Surface& board, const std::string& number) const {
    SDL_FillRect(&board, nullptr, 0);
    SDL_Rect at{};
    for (const char digit : number) {
      SDL_Surface* glyph = myDigits[static_cast<std::size_t>(digit - '0')].get();
      SDL_Rect to = at;
      SDL_UpperBlit(glyph, nullptr, &board, &to);
      at.x = static_cast<Sint16>(at.x + glyph->w);
    }
  }

  SurfacePtr myScreen;
  SurfacePtr myKittenPicture;
  std::unique_ptr<CFont> myFont;
  SurfacePtr myNumberPicture;
  std::vector<SurfacePtr> myDigits;
  std::vector<SItem> myItems;  // from back to front
};

// Copies in pieces that fit a cache, through buffers that only the next one holds.
class CCopier {
 public:
  void Copy(std::size_t bytes) {
    for (std::size_t done = 0; done < bytes; done += kPiece) {
      std::memcpy(&myTarget[myPlace], &mySource[myPlace], std::min(kPiece, bytes - done));
      benchmark::ClobberMemory();
      myPlace = myPlace + 2 * kPiece > mySource.size() ? 0 : myPlace + kPiece;
    }
  }

 private:
  static constexpr std::size_t kPiece = 40'000;
  std::vector<char> mySource = std::vector<char>(1 << 20, 'x');
  std::vector<char> myTarget = std::vector<char>(1 << 20, 'y');
  std::size_t myPlace = 0;
};

// The share of the screen's pixels that the two sides draw more than a little differently. SDL_gfx
// darkens the rim of what it turns.
double Difference(const SDL_Surface& one, const SDL_Surface& other) {
  int different = 0;
  for (int i = 0; i < kWidth * kHeight; ++i) {
    const std::uint32_t a = sdl::ReadPixel(one, i % kWidth, i / kWidth);
    const std::uint32_t b = sdl::ReadPixel(other, i % kWidth, i / kWidth);
    bool isClose = true;
    for (int shift = 0; shift < 24; shift += 8) {
      isClose = isClose && std::abs(static_cast<int>(a >> shift & 0xFF) -
                                    static_cast<int>(b >> shift & 0xFF)) <= 8;
    }
    different += isClose ? 0 : 1;
  }
  return static_cast<double>(different) / (kWidth * kHeight);
}

template <typename Draw>
double SecondsPerFrame(Draw draw) {
  const Clock::time_point start = Clock::now();
  for (int frame = 0; frame < kFrames; ++frame) {
    draw(frame);
  }
  return SecondsSince(start) / kFrames;
}

void BM_PlayFrame(benchmark::State& state) {
  const CFrameStage stage;
  CSpriteFrames sprites;
  CPlainFrames plain;
  CCopier copier;
  std::array<std::size_t, kFrames> bytes{};
  double difference = 0;
  for (int frame = 0; frame < kFrames; ++frame) {
    sprites.Draw(frame);
    plain.Draw(frame);
    difference = std::max(difference, Difference(*stage.Screen(), *plain.Screen()));
    bytes[static_cast<std::size_t>(frame)] =
        static_cast<std::size_t>(sprites.DrawnPixels()) * kBytesPerPixel;
  }
  std::vector<double> ours;
  std::vector<double> plains;
  std::vector<double> copies;
  for ([[maybe_unused]] auto _ : state) {
    ours.push_back(SecondsPerFrame([&](int frame) { sprites.Draw(frame); }));
    plains.push_back(SecondsPerFrame([&](int frame) { plain.Draw(frame); }));
    copies.push_back(SecondsPerFrame(
        [&](int frame) { copier.Copy(bytes[static_cast<std::size_t>(frame)] / 2); }));
    state.SetIterationTime(ours.back());
  }
  state.counters["ours_us"] = Median(ours) * 1e6;
  state.counters["plain_us"] = Median(plains) * 1e6;
  state.counters["memcpy_us"] = Median(copies) * 1e6;
  // The limits are the goals, 0.38 and 2.9, and half as much again.
  const bool isAgainstPlain = state.range(0) != 0;
  state.counters["ratio"] = Median(ours) / Median(isAgainstPlain ? plains : copies);
  state.counters["limit"] = 1.5 * (isAgainstPlain ? 0.38 : 2.9);
  state.counters["difference"] = difference;
}
BENCHMARK(BM_PlayFrame)
    ->ArgName("plain")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->MinTime(0.5);

// What moves in a frame of play, and with a cast that lives: the kitten's animation runs while it
// turns, and two pupils go with the monster. Without one the kitten is a single picture.
class CCastFrames {
 public:
  explicit CCastFrames(bool isLiving)
      : myKitten(CSpriteFactory::GetSingletonPtr()->Load("data/gfx/kitten_02_spinning_hard.xml")) {
    myKitten->SetParent(CScreenLayer::GetSingletonPtr());
    if (!isLiving) {
      dynamic_cast<CAnimatedSprite&>(*myKitten).Stop();
      return;
    }
    for (std::size_t i = 0; i < kPupils; ++i) {
      myPupils.emplace_back(CSpriteFactory::GetSingletonPtr()->Load("data/gfx/monster_pupil.xml"));
      myPupils.back()->SetParent(CScreenLayer::GetSingletonPtr());
    }
  }

  void Draw(int frame) {
    myTime += kFrameTime;
    CAnimationUpdator::GetSingletonPtr()->Update(myTime);
    myKitten->SetPosition(KittenX(frame), kKitten.y);
    myKitten->SetRotation(kTurn * static_cast<float>(frame + 1));
    for (std::size_t i = 0; i < myPupils.size(); ++i) {
      myPupils[i]->SetPosition(MonsterX(frame) + 25 + 20 * static_cast<int>(i), kMonster.y + 28);
    }
    myOthers.Draw(frame);
  }

 private:
  static constexpr std::size_t kPupils = 2;
  static constexpr unsigned kFrameTime = 17;  // milliseconds

  CSpriteFrames myOthers{false};
  CSpritePtr myKitten;
  std::vector<CSpritePtr> myPupils;
  unsigned myTime = 0;
};

void BM_LivingCast(benchmark::State& state) {
  const CFrameStage stage;
  const auto measure = [](bool isLiving) {
    CCastFrames frames(isLiving);
    const auto draw = [&frames](int frame) { frames.Draw(frame); };
    SecondsPerFrame(draw);  // the first one draws all
    return SecondsPerFrame(draw);
  };
  std::vector<double> living;
  std::vector<double> still;
  std::vector<double> ratios;
  for ([[maybe_unused]] auto _ : state) {
    living.push_back(measure(true));
    still.push_back(measure(false));
    ratios.push_back(living.back() / still.back());
    state.SetIterationTime(living.back());
  }
  state.counters["living_us"] = Median(living) * 1e6;
  state.counters["still_us"] = Median(still) * 1e6;
  state.counters["ratio"] = Median(ratios);
  state.counters["limit"] = 1.05;
}
BENCHMARK(BM_LivingCast)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(200);

// How much of a frame SDL_gfx alone takes for turning the kitten.
void BM_Rotation(benchmark::State& state) {
  const CFrameStage stage;
  const Gfx::ImagePtr kitten(NewBlob(kKitten, 255));
  std::vector<double> ours;
  std::vector<double> plains;
  for ([[maybe_unused]] auto _ : state) {
    ours.push_back(SecondsPerFrame(
        [&](int frame) { Gfx::ImagePtr(kitten->Rotate(kTurn * static_cast<float>(frame + 1))); }));
    plains.push_back(SecondsPerFrame([&](int frame) {
      SurfacePtr(rotozoomSurface(SurfaceOf(kitten.get()), kTurn * static_cast<float>(frame + 1),
                                 1.0, SMOOTHING_ON));
    }));
    state.SetIterationTime(ours.back());
  }
  state.counters["ours_us"] = Median(ours) * 1e6;
  state.counters["sdl_gfx_us"] = Median(plains) * 1e6;
}
BENCHMARK(BM_Rotation)->UseManualTime()->Unit(benchmark::kMicrosecond)->MinTime(0.2);

// The colours weighted by the alpha, as pixman wants them.
std::vector<std::uint32_t> Premultiplied(const SDL_Surface& surface) {
  std::vector<std::uint32_t> pixels;
  for (int i = 0; i < surface.w * surface.h; ++i) {
    const std::uint32_t pixel = sdl::ReadPixel(surface, i % surface.w, i / surface.w);
    const std::uint32_t alpha = pixel >> 24;
    std::uint32_t weighted = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
      weighted |= (pixel >> shift & 0xFF) * alpha / 255 << shift;
    }
    pixels.push_back(weighted);
  }
  return pixels;
}

void BM_OverBlit(benchmark::State& state) {
  const CRect<int> size{0, 0, 200, 80};
  const CFrameStage stage;
  const Gfx::ImagePtr sprite(NewBlob(size, 255));
  const Gfx::ImagePtr ground(NewBlob({0, 0, 300, 200}, 30, 0.6));
  ground->SetRect({50, 60, size.w, size.h});
  const Gfx::ImagePtr target(Gfx::NewBuffer(size.w, size.h));
  std::vector<std::uint32_t> from = Premultiplied(*SurfaceOf(sprite.get()));
  Gfx::CopyPixels(ground.get(), size, target.get(), 0, 0);
  const std::vector<std::uint32_t> fresh = Premultiplied(*SurfaceOf(target.get()));
  std::vector<std::uint32_t> onto = fresh;
  const auto newImage = [&](std::vector<std::uint32_t>& pixels) {
    return pixman_image_create_bits(PIXMAN_a8r8g8b8, size.w, size.h, pixels.data(), size.w * 4);
  };
  pixman_image_t* const pixmanSource = newImage(from);
  pixman_image_t* const pixmanTarget = newImage(onto);
  std::vector<double> ours;
  std::vector<double> pixmans;
  for ([[maybe_unused]] auto _ : state) {
    Gfx::CopyPixels(ground.get(), size, target.get(), 0, 0);
    Clock::time_point start = Clock::now();
    sprite->Blit(target.get(), size, size);
    ours.push_back(SecondsSince(start));
    state.SetIterationTime(ours.back());
    std::copy(fresh.begin(), fresh.end(), onto.begin());
    start = Clock::now();
    pixman_image_composite32(PIXMAN_OP_OVER, pixmanSource, nullptr, pixmanTarget, 0, 0, 0, 0, 0, 0,
                             size.w, size.h);
    pixmans.push_back(SecondsSince(start));
  }
  pixman_image_unref(pixmanSource);
  pixman_image_unref(pixmanTarget);
  state.counters["ours_us"] = Median(ours) * 1e6;
  state.counters["pixman_us"] = Median(pixmans) * 1e6;
  state.counters["ratio"] = Median(ours) / Median(pixmans);
  state.counters["limit"] = 3;
}
BENCHMARK(BM_OverBlit)->UseManualTime()->Unit(benchmark::kMicrosecond)->MinTime(0.1);

}  // namespace
}  // namespace vask
