#include "tasks/taskgfx.h"

#include "gfx/animation/animationupdator.h"
#include "gfx/picture/gfx.h"
#include "gfx/sprite/screenlayer.h"
#include "utils/timer/globalapptimer.h"

namespace vask {

CTaskGfx::CTaskGfx() : myTimer(CGlobalAppTimer::GetSingletonPtr()) {}

bool CTaskGfx::Start() {
  myTimer.Reset();
  myTimer.Resume();
  return true;
}

void CTaskGfx::Update() {
  CAnimationUpdator::GetSingletonPtr()->Update(myTimer.GetTime());
  if (!Gfx::GetScreen()->IsEmpty()) {
    CScreenLayer::GetSingletonPtr()->DrawFrame();
  }
}

void CTaskGfx::Exit() {
  myTimer.Pause();
  CScreenLayer::DeleteSingleton();
}

}  // namespace vask
