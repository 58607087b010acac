#include "ui/receivers.h"

#include "designpatterns/walklist.h"
#include "ui/eventbase.h"
#include "ui/widget.h"

namespace vask::ui {
namespace {

struct SReceivers {
  CWidget* focus = nullptr;
  IEventBase* keyboard = nullptr;
  CWidget* mouseOver = nullptr;
  CWalkList<IEventBase> capture;
  unsigned generation = 0;
};

// Never destroyed: receivers that die at the end of the process still leave it.
SReceivers& Receivers() {
  static SReceivers* const receivers = new SReceivers;
  return *receivers;
}

}  // namespace

IEventBase::~IEventBase() { ForgetReceiver(this); }

void SetFocus(CWidget* widget) {
  Receivers().focus = widget;
  Receivers().keyboard = widget;
}

CWidget* GetFocus() { return Receivers().focus; }

IEventBase* GetKeyboardReceiver() { return Receivers().keyboard; }

void SetMouseOver(CWidget* widget) { Receivers().mouseOver = widget; }

CWidget* GetMouseOver() { return Receivers().mouseOver; }

void AddMouseCapture(IEventBase* receiver) { Receivers().capture.AppendOnce(receiver); }

void RemoveMouseCapture(IEventBase* receiver) { Receivers().capture.Remove(receiver); }

void SendToMouseCapture(CMouseEvent& event) {
  Receivers().capture.ForEachPresent(
      [&event](IEventBase* receiver) { receiver->OnMouseEvent(event); });
}

void SendToKeyboardReceiver(CKeyboardEvent& event) {
  if (IEventBase* receiver = GetKeyboardReceiver()) {
    receiver->OnKeyboardEvent(event);
  }
}

void ForgetReceiver(IEventBase* receiver) {
  RemoveMouseCapture(receiver);
  if (GetKeyboardReceiver() == receiver) {
    Receivers().keyboard = nullptr;
  }
}

void ClearReceivers() {
  SetFocus(nullptr);
  SetMouseOver(nullptr);
  Receivers().capture.Clear();
  ++Receivers().generation;
}

unsigned GetReceiversGeneration() { return Receivers().generation; }

}  // namespace vask::ui
