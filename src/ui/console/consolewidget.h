#pragma once

#include "gfx/text/font.h"
#include "ui/console/logview.h"
#include "ui/widget.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vask {
class CLotsATextSprite;
}

namespace vask::ui {

// Shows the log while it is written, over its whole parent except a line at the bottom. The wheel
// scrolls it.
class CConsoleWidget : public CWidget {
 public:
  CConsoleWidget();
  CConsoleWidget(CWidget* parent, const std::string& name);
  ~CConsoleWidget() override;

  void OnMouseEvent(CMouseEvent& event) override;

  // Positive numbers scroll down. A page is the widget's height less one line.
  void ScrollLines(std::int32_t lines);
  void ScrollPages(std::int32_t pages);

 private:
  void ScrollBy(std::int32_t pixels);
  // Null when the widget has been given another sprite.
  CLotsATextSprite* TextSprite() const;

  std::unique_ptr<CFont> myFont;
  CLogView myView;
  CSpritePtr myText;  // as made here; others may hold it longer than the view lives
};

}  // namespace vask::ui
