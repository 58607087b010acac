#pragma once

#include "kernel/task.h"
#include "utils/timer/timer.h"

namespace vask {

// The platform-independent part of the graphics task: a frame advances the animations and draws the
// screen layer.
class CTaskGfx : public CTask {
 public:
  CTaskGfx();

  using CTask::Start;
  bool Start() override;
  void Update() override;
  // Deletes the screen layer.
  void Exit() override;

 private:
  CTimer myTimer;  // animation time; stopped without the focus
};

}  // namespace vask
