#pragma once

#include "designpatterns/singleton.h"
#include "ui/keyrepeater.h"
#include "ui/widget.h"

#include <memory>

namespace vask::ui {

// The root of all widgets, created on first use with the size of the window. It keeps its children
// on the screen, moves the focus with the clicks and repeats the keys that are held.
class CDesktopWidget : public CWidget, public CStaticSingleton<CDesktopWidget> {
 public:
  CDesktopWidget();

  using CWidget::Resize;
  void HandleEvent(IEvent& event) override;
  void Resize(SSize size) override;
  // Moves the rectangle onto the desktop; one that is larger lies at the right or lower edge.
  CRect<int> FitChildRect(const CRect<int>& rect) const override;

  // Whether a widget lies at that place of the screen and takes the presses there. Changes nothing,
  // and brings no desktop into being.
  static bool HasWidgetAt(SPoint point);

  // To be called in every frame.
  void UpdateKeyRepeat();

  // Forgets the desktop and all receivers at once, and deletes it, with every widget on it, as soon
  // as it handles no event any more: a widget's handler may do this.
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
