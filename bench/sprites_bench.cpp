#include "gfx/sprite/spritefactory.h"
#include "stage.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <vector>

// Frames in which every sprite moves: by the layers, which keep what is below each sprite, and as a
// plain program does it with SDL alone, which erases with the background and draws. The sides take
// turns, and the fastest pass of each counts.

namespace vask {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSide = 32;
constexpr char kSpriteFile[] = "sprites_bench.tga";
constexpr char kGroundFile[] = "sprites_bench_ground.bmp";
constexpr int kSpritesInAPass = 5000;  // drawn, in as many frames as that takes
constexpr double kMargin = 1.5;        // a limit is the goal with this margin

struct SPlace {
  int x;
  int y;
};

// Scattered, and somewhere else a little further on in each frame.
SPlace PlaceOf(int sprite, int frame) {
  const auto along = [](int start, int step, int room) { return (start + step) % room; };
  return {along(sprite * 389, frame * (1 + sprite % 3), kWidth - kSide),
          along(sprite * 211, frame * (1 + sprite % 5), kHeight - kSide)};
}

// A disc with a soft edge.
void SaveDisc() {
  const Gfx::ImagePtr picture(Gfx::NewBuffer(kSide, kSide));
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const int dx = 2 * x - kSide;
      const int dy = 2 * y - kSide;
      CColor color(static_cast<std::uint8_t>(x * 7), static_cast<std::uint8_t>(y * 5), 90);
      color.a = static_cast<std::uint8_t>(std::clamp(kSide * kSide - dx * dx - dy * dy, 0, 255));
      picture->PutPixel(x, y, color);
    }
  }
  picture->SaveToFile(kSpriteFile);
}

void SaveGround() {
  const Gfx::ImagePtr picture(Gfx::NewBuffer(kWidth, kHeight));
  for (int i = 0; i < kWidth * kHeight; ++i) {
    const auto red = static_cast<std::uint8_t>(i * 7);
    picture->PutPixel(i % kWidth, i / kWidth, CColor(red, static_cast<std::uint8_t>(i / 900), 30));
  }
  picture->SaveToFile(kGroundFile);
}

SDL_Surface* SurfaceOf(IPixel* image) { return dynamic_cast<CPixelSDL&>(*image).GetSurface(); }

class CSpriteStage : public CStage {
 public:
  CSpriteStage() : CStage(std::filesystem::temp_directory_path()) {
    SaveDisc();
    SaveGround();
  }
  ~CSpriteStage() {
    std::filesystem::remove(kSpriteFile);
    std::filesystem::remove(kGroundFile);
  }
};

class CSprites {
 public:
  explicit CSprites(int count) {
    myGround = CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(kGroundFile));
    myGround->SetZ(1000);
    for (int i = 0; i < count; ++i) {
      mySprites.emplace_back(CSpriteFactory::GetSingletonPtr()->Load(kSpriteFile));
    }
  }
  void Draw(int frame) {
    for (std::size_t i = 0; i < mySprites.size(); ++i) {
      const SPlace place = PlaceOf(static_cast<int>(i), frame);
      mySprites[i]->SetPosition(place.x, place.y);
    }
    CScreenLayer::GetSingletonPtr()->DrawFrame();
  }
  static SDL_Surface* Screen() { return SurfaceOf(Gfx::GetScreen()); }

 private:
  CSpritePtr myGround;
  std::vector<CSpritePtr> mySprites;
};

class CPlainBlits {
 public:
  explicit CPlainBlits(int count)
      : myGround(Gfx::LoadImage(kGroundFile, Gfx::kMagenta)),
        myPicture(Gfx::LoadImage(kSpriteFile, Gfx::kMagenta)),
        myScreen(sdl::NewSurface(kWidth, kHeight, sdl::FormatOf(*SDL_GetVideoSurface()))),
        myBackground(sdl::NewSurface(kWidth, kHeight, sdl::FormatOf(*myScreen))),
        myPlaces(static_cast<std::size_t>(count)) {
    SDL_UpperBlit(SurfaceOf(myGround.get()), nullptr, myBackground.get(), nullptr);
    SDL_UpperBlit(myBackground.get(), nullptr, myScreen.get(), nullptr);
  }
  void Draw(int frame) {
    for (const SDL_Rect& place : myPlaces) {
      SDL_Rect from{place.x, place.y, kSide, kSide};
      SDL_Rect to = place;
      SDL_UpperBlit(myBackground.get(), &from, myScreen.get(), &to);
    }
    for (std::size_t i = 0; i < myPlaces.size(); ++i) {
      const SPlace place = PlaceOf(static_cast<int>(i), frame);
      myPlaces[i] = {static_cast<Sint16>(place.x), static_cast<Sint16>(place.y), 0, 0};
      SDL_UpperBlit(SurfaceOf(myPicture.get()), nullptr, myScreen.get(), &myPlaces[i]);
    }
  }
  SDL_Surface* Screen() const { return myScreen.get(); }

 private:
  Gfx::ImagePtr myGround;
  Gfx::ImagePtr myPicture;
  sdl::SurfacePtr myScreen;
  sdl::SurfacePtr myBackground;
  std::vector<SDL_Rect> myPlaces;
};

bool ShowTheSame(const SDL_Surface& one, const SDL_Surface& other) {
  for (int y = 0; y < kHeight; ++y) {
    if (std::memcmp(sdl::RowAddress(one, y), sdl::RowAddress(other, y), 4 * kWidth) != 0) {
      return false;
    }
  }
  return true;
}

// Draws one pass; keeps the shortest time for a sprite of a frame, in seconds.
template <typename Side>
void Measure(Side& side, int count, int& frame, double& best) {
  const int frames = kSpritesInAPass / count;
  const Clock::time_point start = Clock::now();
  for (int i = 0; i < frames; ++i) {
    side.Draw(++frame);
  }
  const std::chrono::duration<double> time = Clock::now() - start;
  best = std::min(best, time.count() / (frames * count));
}

constexpr double kLongest = std::numeric_limits<double>::infinity();

void BM_AgainstPlainBlits(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  const CSpriteStage stage;
  CSprites sprites(count);
  CPlainBlits plain(count);
  sprites.Draw(0);
  plain.Draw(0);
  int frame = 0;
  int plainFrame = 0;
  double ours = kLongest;
  double plains = kLongest;
  for ([[maybe_unused]] auto _ : state) {
    Measure(sprites, count, frame, ours);
    Measure(plain, count, plainFrame, plains);
  }
  if (!ShowTheSame(*CSprites::Screen(), *plain.Screen())) {
    state.SkipWithError("the sides draw different pixels");
  }
  state.counters["ours_us"] = ours * 1e6;
  state.counters["plain_us"] = plains * 1e6;
  state.counters["ratio"] = ours / plains;
  state.counters["limit"] = 1.5 * kMargin;
}
BENCHMARK(BM_AgainstPlainBlits)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(5000)
    ->Iterations(60)
    ->Unit(benchmark::kMillisecond);

// What a sprite costs among 5,000 against what it costs among 100.
void BM_Growth(benchmark::State& state) {
  constexpr int kFew = 100;
  constexpr int kMany = 5000;
  int fewFrame = 0;
  int manyFrame = 0;
  double few = kLongest;
  double many = kLongest;
  for ([[maybe_unused]] auto _ : state) {
    const auto measure = [](int count, int& frame, double& best) {
      const CSpriteStage stage;
      CSprites sprites(count);
      sprites.Draw(frame);
      for (int pass = 0; pass < 3; ++pass) {
        Measure(sprites, count, frame, best);
      }
    };
    measure(kFew, fewFrame, few);
    measure(kMany, manyFrame, many);
  }
  state.counters["few_us"] = few * 1e6;
  state.counters["many_us"] = many * 1e6;
  state.counters["ratio"] = many / few;
  state.counters["limit"] = 2.5 * kMargin;
}
BENCHMARK(BM_Growth)->Iterations(20)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vask
