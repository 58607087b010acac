#pragma once

#include "gfx/picture/gfx.h"
#include "kernel/task.h"

namespace vask {

// Draws a few test pictures on the screen (task type "gfxtest"), to look at blending, scaling,
// rotation and fading. Start it after the graphics task.
class CTestTaskGfx : public CTask {
 public:
  // An optional picture file replaces the built-in test picture.
  bool Start(CConsoleParams* params) override;
  bool Start() override { return Start(nullptr); }
  void Update() override;
  void Exit() override;

 private:
  Gfx::ImagePtr myPicture;
  float myAngle = 0.0F;
};

}  // namespace vask
