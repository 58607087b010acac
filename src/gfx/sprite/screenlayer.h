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
  // Null while the current screen is another one than that of the last frame, or a full redraw is
  // due.
  CSprite* GetCanvas() const override;

  // One frame: draws what changed, or everything after a refresh or a change of the screen.
  void DrawFrame();
  // Makes the next frame a full redraw.
  void RefreshAll() { myRefreshAll = true; }
  void BackgroundLost() override;

 private:
  void DrawAll();

  std::unique_ptr<CSprite> myCanvasSprite;
  IPixel* myScreen;  // of the last frame; not owned
  bool myRefreshAll = false;
};

}  // namespace vask
