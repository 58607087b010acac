#pragma once

#include "designpatterns/singleton.h"
#include "gfx/sprite/spritelayer.h"

#include <memory>

namespace vask {

// The root of what is drawn: the layer whose canvas is the screen. Created on first use, deleted
// when the graphics task stops.
class CScreenLayer : public CStaticSingleton<CScreenLayer>, public CSpriteLayer {
 public:
  CScreenLayer();
  ~CScreenLayer() override;

  int GetTypeId() const override;
  // Null while the screen that was drawn on last is not the current one.
  CSprite* GetCanvas() const override;

  // One frame: draws what changed, or everything after a refresh or a change of the screen.
  void DrawFrame();
  // Asks for a full redraw of the next frame.
  void RefreshAll() { myRefreshAll = true; }

 private:
  void DrawAll();

  std::unique_ptr<CSprite> myCanvasSprite;
  IPixel* myScreen;  // not owned; the screen of the last frame
  bool myRefreshAll = false;
};

}  // namespace vask
