#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "game/deathtoasprite.h"
#include "game/gamestate.h"
#include "gfx/animationupdator.h"
#include "gfx/pixelnull.h"
#include "gfx/screenlayer.h"
#include "gfx/textsprite.h"
#include "gtest/gtest.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"
#include "support/fakerandom.h"
#include "support/logcapture.h"
#include "utils/timer/globalapptimer.h"

namespace brumble::test {

// Makes pictures of 40 x 40 pixels, whatever is in their file, and counts how many of them live.
class CFakePictures : public vask::CGfxFactory {
 public:
  using IPixel = vask::IPixel;
  IPixel* NewBuffer(int w, int h, const vask::CColor&) override {
    return new CPicture(*this, w, h);
  }
  IPixel* NewBuffer(int w, int h) override { return new CPicture(*this, w, h); }
  IPixel* LoadImage(const std::string&, const vask::CColor&) override { return NewBuffer(40, 40); }
  IPixel* NewBuffer(IPixel*) override { return NewBuffer(40, 40); }
  IPixel* Reserved() override { return nullptr; }
  void FreeImage(IPixel* image) override { delete (image->IsStatic() ? nullptr : image); }

  int alive = 0;

 private:
  struct CPicture : vask::CPixelNull {
    CPicture(CFakePictures& f, int width, int height) : factory(f), w(width), h(height) {
      ++factory.alive;
    }
    ~CPicture() override { --factory.alive; }
    bool IsStatic() const override { return false; }
    bool IsEmpty() const override { return false; }
    int GetWidth() const override { return w; }
    int GetHeight() const override { return h; }
    IPixel* Scale(int width, int height) const override { return factory.NewBuffer(width, height); }
    IPixel* Rotate(float) const override { return factory.NewBuffer(w, h); }
    IPixel* CloneWithAlpha(int) const override { return factory.NewBuffer(w, h); }

    CFakePictures& factory;
    int w;
    int h;
  };
};

// Stands in for the audio task and remembers what it was asked to play.
struct CFakeAudio : vask::CTask {
  static inline std::vector<std::string> played;
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    played.push_back(line);
    return true;
  }
};

// The sprites of that name on the screen, the newest first among equal depths.
inline std::vector<vask::CSprite*> Shown(const std::string& name) {
  std::vector<vask::CSprite*> found = vask::CScreenLayer::GetSingletonPtr()->GetChildren();
  std::erase_if(found, [&](const vask::CSprite* sprite) { return sprite->GetName() != name; });
  return found;
}

inline std::vector<vask::CTextSprite*> Floating() {
  std::vector<vask::CTextSprite*> found;
  for (vask::CSprite* const sprite : Shown("")) {
    if (sprite->GetTypeId() == vask::CSprite::kText && sprite->GetZ() == 20) {
      found.push_back(static_cast<vask::CTextSprite*>(sprite));
    }
  }
  return found;
}

// A folder to run in with the game's data, pictures, a stopped clock, and rules that begin afresh.
// Without data there is nothing to be seen or heard, and everything must run all the same.
class GameTest : public ::testing::Test {
 protected:
  explicit GameTest(bool withData = true) {
    if (withData) {
      std::filesystem::create_directory_symlink(BRUMBLE_RUNTIME_FOLDER "/data", "data");
      vask::Gfx::SetFactory(&pictures);
    }
    vask::CGlobalAppTimer::GetSingletonPtr()->Reset();
    vask::CAnimationUpdator::GetSingletonPtr()->Update(clock.Now());
    GameState() = {};
    auto& tasks = *vask::CTaskFactory::GetSingletonPtr();
    tasks.GetPlugFactory().Register<CFakeAudio>("fake_audio");
    if (tasks.GetTask("Audio") == nullptr) {
      tasks.StartTask("fake_audio", "Audio", 1, nullptr);
    }
    CFakeAudio::played.clear();
  }
  ~GameTest() override {
    CDeathToASprite::DeleteAll();
    vask::Gfx::SetFactory(nullptr);
    std::filesystem::remove("data");
  }

  // Time goes by for the timers and for what moves on the screen.
  void Pass(unsigned milliseconds) {
    clock.Advance(milliseconds);
    vask::CAnimationUpdator::GetSingletonPtr()->Update(clock.Now());
  }

  vask::test::CFakeClock clock;
  vask::test::CFakeRandom random{{16384}};
  CFakePictures pictures;
  vask::test::CLogCapture log;
};

}  // namespace brumble::test
