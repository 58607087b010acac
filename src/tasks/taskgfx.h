#pragma once

#include "kernel/task.h"
#include "utils/timer/timer.h"

namespace vask {

// The part of the graphics task that knows no platform: one frame advances the animations and draws
// the screen layer.
class CTaskGfx : public CTask {
 public:
  CTaskGfx();

  using CTask::Start;
  bool Start() override;
  void Update() override;
  // Deletes the screen layer.
  void Exit() override;

 private:
  CTimer myTimer;  // animation time: stands still without the focus
};

}  // namespace vask
