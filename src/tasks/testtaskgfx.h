#pragma once

#include "gfx/picture/gfx.h"
#include "kernel/task.h"

namespace vask {

// Draws a few test pictures on the screen (task type "gfxtest"), for a look at what blends, scales,
// rotates and fades. Start it after the graphics task.
class CTestTaskGfx : public CTask {
 public:
  // An optional picture file takes the place of the built-in test picture.
  bool Start(CConsoleParams* params) override;
  bool Start() override { return Start(nullptr); }
  void Update() override;
  void Exit() override;

 private:
  Gfx::ImagePtr myPicture;
  float myAngle = 0.0F;
};

}  // namespace vask
