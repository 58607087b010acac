#pragma once

#include "ui/widget.h"
#include "utils/signalslot/signal.h"
#include "utils/timer/timer.h"

#include <cstdint>
#include <string>

namespace vask::ui {

// Something to click, to double-click and to drag. Its sprite plays the animations "mouse_over",
// "mouse_out", "mouse_button_down" and "mouse_button_up", as far as it has them.
class CButtonWidget : public CWidget {
 public:
  CButtonWidget();
  CButtonWidget(CWidget* parent, const CRect<int>& rect, bool relative, const std::string& name,
                const CSpritePtr& sprite);

  void OnMouseEvent(CMouseEvent& event) override;

  css::CSignal& GetClickSignal() { return myClickSignal; }
  // With two int32_t: the move that keeps the grabbed point under the pointer. The button does not
  // move itself.
  css::CSignal& GetDragSignal() { return myDragSignal; }
  css::CSignal& GetDoubleClickSignal() { return myDoubleClickSignal; }
  // A drag that is going on ends when it is turned off.
  void SetDraggable(bool on);
  void SetDoubleClickEnabled(bool on) { myDoubleClickEnabled = on; }

 private:
  void OnMove(SPoint pointer);
  void OnPress(const CMouseEvent& event);
  void OnRelease(std::int32_t buttons);
  void StartDragging(SPoint pointer);
  void StopDragging();
  void DetectDoubleClick();
  void Play(const std::string& animation);

  css::CSignal myClickSignal;
  css::CSignal myDragSignal;
  css::CSignal myDoubleClickSignal;
  std::string myText;  // for whoever wants to label the button; the button itself does not use it
  std::int32_t myClickButtons = 1;  // bits, as in the other masks of buttons
  bool myPressed = false;
  bool myDoubleClickEnabled = true;
  std::int32_t myDoubleClickButtons = 1;
  CTimer myDoubleClickTimer;  // since the first click
  bool myFirstClickSeen = false;
  bool myDraggable = true;
  std::int32_t myDragButtons = 1;
  bool myDragging = false;
  SPoint myDragOffset;  // from the pointer to the corner when it was grabbed
};

}  // namespace vask::ui
