#pragma once

#include "designpatterns/singleton.h"
#include "ui/keyrepeater.h"
#include "ui/widget.h"

#include <memory>

namespace vask::ui {

// The root of all widgets, created on first use with the size of the window. It keeps its children
// on the screen, moves the focus on clicks and repeats held keys.
class CDesktopWidget : public CWidget, public CStaticSingleton<CDesktopWidget> {
 public:
  CDesktopWidget();

  using CWidget::Resize;
  void HandleEvent(IEvent& event) override;
  void Resize(SSize size) override;
  // Moves the rectangle onto the desktop; a larger one is aligned to the right or lower edge.
  CRect<int> FitChildRect(const CRect<int>& rect) const override;

  // Whether a widget at that point of the screen takes button presses. Does not create the desktop.
  static bool HasWidgetAt(SPoint point);

  // Call it in every frame.
  void UpdateKeyRepeat();

  // Clears all receivers at once and deletes the desktop, with every widget on it, as soon as it
  // handles no event: a widget's handler may call this.
  static void DeleteSingleton();

 private:
  class CDispatch;

  void HandleMouseEvent(CMouseEvent& event);
  void HandleKeyboardEvent(CKeyboardEvent& event);
  void MoveFocus(SPoint point);

  std::unique_ptr<CKeyRepeater> myKeyRepeater;
  int myDispatches = 0;  // nested ones counted
  bool myIsForgotten = false;
};

}  // namespace vask::ui
