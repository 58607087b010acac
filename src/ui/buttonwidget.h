#pragma once

#include "input/buttons.h"
#include "ui/widget.h"
#include "utils/signalslot/signal.h"
#include "utils/timer/timer.h"

#include <cstdint>
#include <string>

namespace vask::ui {

// A widget to click, double-click and drag. Its sprite plays those of the animations "mouse_over",
// "mouse_out", "mouse_button_down" and "mouse_button_up" that it has.
class CButtonWidget : public CWidget {
 public:
  CButtonWidget();
  CButtonWidget(CWidget* parent, const CRect<int>& rect, bool relative, const std::string& name,
                const CSpritePtr& sprite);

  void OnMouseEvent(CMouseEvent& event) override;

  css::CSignal& GetClickSignal() { return myClickSignal; }
  // Carries two int32_t: the move that keeps the grabbed point under the pointer. The button does
  // not move itself.
  css::CSignal& GetDragSignal() { return myDragSignal; }
  css::CSignal& GetDoubleClickSignal() { return myDoubleClickSignal; }
  // Turning it off ends a drag.
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
  std::string myText;                         // a label for the owner; the button does not use it
  std::int32_t myClickButtons = kLeftButton;  // bits, as in the other masks of buttons
  bool myPressed = false;
  bool myDoubleClickEnabled = true;
  std::int32_t myDoubleClickButtons = kLeftButton;
  CTimer myDoubleClickTimer;  // since the first click
  bool myFirstClickSeen = false;
  bool myDraggable = true;
  std::int32_t myDragButtons = kLeftButton;
  bool myDragging = false;
  SPoint myDragOffset;  // from the pointer to the corner when it was grabbed
};

}  // namespace vask::ui
