#pragma once

#include "game/brumbletask.h"
#include "game/brumbletaskimpl.h"
#include "game/deathtoasprite.h"
#include "game/gamestate.h"
#include "game/physics/screentransform.h"
#include "game/replayfiles.h"
#include "game/scores.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/picture/gfx.h"
#include "gfx/sdl/gfxfactorysdl.h"
#include "gfx/sprite/screenlayer.h"
#include "gfx/sprite/sprite.h"
#include "input/buttons.h"
#include "input/mouse.h"
#include "kernel/taskfactory.h"
#include "platform/wallclock.h"
#include "support/fakeclock.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "utils/assert.h"
#include "utils/timer/globalapptimer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace brumble::test {

// The sprites of that name on the screen.
inline std::vector<vask::CSprite*> Shown(const std::string& name) {
  std::vector<vask::CSprite*> found = vask::CScreenLayer::GetSingletonPtr()->GetChildren();
  std::erase_if(found, [&](const vask::CSprite* sprite) { return sprite->GetName() != name; });
  return found;
}
// Where the sprite, or the first of that name, is: "x,y" of its corner or of its centre.
inline std::string PlaceOf(const vask::CSprite& sprite) {
  return std::to_string(sprite.GetX()) + "," + std::to_string(sprite.GetY());
}
inline std::string PlaceOf(const std::string& name) { return PlaceOf(*Shown(name).at(0)); }
inline std::string CentreOf(vask::CSprite& sprite) {
  const vask::CRect<int> rect = sprite.GetRect();
  return std::to_string(rect.x + rect.w / 2) + "," + std::to_string(rect.y + rect.h / 2);
}
// The floating numbers, the newest first.
inline std::vector<vask::CSprite*> Floating() {
  std::vector<vask::CSprite*> found = Shown("");
  std::erase_if(found, [](const vask::CSprite* sprite) { return sprite->GetZ() != 20; });
  return found;
}

// Takes the place of the task that plays sounds and music.
class CFakeAudio : public vask::CTask {
 public:
  // There is one, which has played nothing yet.
  static CFakeAudio& Get() {
    static const vask::CTaskTypeRegistrar<CFakeAudio> registrar("fake audio");
    vask::CTaskFactory& tasks = *vask::CTaskFactory::GetSingletonPtr();
    tasks.StartTask("fake audio", "Audio", 1, nullptr);
    auto& audio = dynamic_cast<CFakeAudio&>(*tasks.GetTask("Audio"));
    audio.played.clear();
    return audio;
  }
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    const std::size_t start = line.rfind('/') + 1;  // 0 without a file
    played += (start == 0 ? "stop" : line.substr(start, line.rfind('.') - start)) + " ";
    return true;
  }

  std::string played;  // the names of the files, a blank after each; "stop" for an end of the music
};

// A folder to run in with the game's data, pictures, a stopped clock, and rules that begin afresh.
class GameTest : public ::testing::Test {
 protected:
  GameTest() {
    vask::Gfx::SetFactory(&pictures);
    vask::CGlobalAppTimer::GetSingletonPtr()->Reset();
    GameState() = {};
    SetScreenTransform(kScreenOffset, kScreenScale);
    Pass(0);
  }
  ~GameTest() override {
    CDeathToASprite::DeleteAll();
    vask::Gfx::SetFactory(nullptr);
    std::filesystem::remove_all(kReplayFolder);
  }

  // Time goes by for the timers and for what moves on the screen.
  void Pass(unsigned milliseconds) {
    clock.Advance(milliseconds);
    vask::CAnimationUpdator::GetSingletonPtr()->Update(clock.Now());
  }

  vask::test::CFakeClock clock;
  vask::CGfxFactorySDL pictures;
  CFakeAudio& audio = CFakeAudio::Get();
  vask::test::CLogCapture log;
};

// The task of the game, from its title on.
class GameTaskTest : public GameTest {
 protected:
  GameTaskTest() { vask::SetAssertHandler(nullptr); }  // it would ask on a display
  ~GameTaskTest() override {
    task.Exit();
    vask::platform::SetWallClock(nullptr);
    std::filesystem::remove(kScoresFile);
  }

  static void Click(int button = vask::kLeftButton) {
    vask::CMouse::GetSingletonPtr()->OnMouseButtonDown(button);
  }
  void Frame(unsigned milliseconds) {
    Pass(milliseconds);
    task.Update();
  }
  void StartGame(const std::string& line = "") {
    task.Start();
    vask::test::Execute(line);
    Click();
    Click();
  }
  // As the rules do, which are asked every 100 ms.
  void EndGame() {
    GameState().isGameOver = true;
    Frame(101);
  }
  CBrumbleTaskImpl& Impl() const { return *task.GetImpl(); }
  std::vector<CPhysicsBody>& Bodies() const {
    return const_cast<std::vector<CPhysicsBody>&>(Impl().GetWorld().GetBodies());
  }

  CBrumbleTask task;
};

}  // namespace brumble::test
