#pragma once

// Who gets the events that are not for whatever lies under the pointer: one focus, one keyboard
// receiver, one widget under the mouse and one capture list for the process, since there is one
// user interface. Nobody is owned; the dead leave by themselves.
namespace vask::ui {

class CKeyboardEvent;
class CMouseEvent;
class CWidget;
class IEventBase;

// The widget becomes the focus and the keyboard receiver; null clears both. Tells nobody.
void SetFocus(CWidget* widget);
// Null for none.
CWidget* GetFocus();
IEventBase* GetKeyboardReceiver();

// The widget that got the last routed mouse event; null for none.
void SetMouseOver(CWidget* widget);
CWidget* GetMouseOver();

// A receiver on the capture list, once at most, gets each mouse event before it is routed: a button
// that is held, a window that is dragged.
void AddMouseCapture(IEventBase* receiver);
void RemoveMouseCapture(IEventBase* receiver);

// The receivers on the list get the event, in its order, but for those that leave before their
// turn.
void SendToMouseCapture(CMouseEvent& event);
// Nothing when there is no keyboard receiver.
void SendToKeyboardReceiver(CKeyboardEvent& event);

// Takes a receiver out of the capture list and from the keyboard.
void ForgetReceiver(IEventBase* receiver);
// Nobody has the focus, the keyboard, the mouse over it or the capture any more. Tells nobody.
void ClearReceivers();
// Differs after each ClearReceivers(): who called a handler in between can tell by it.
unsigned GetReceiversGeneration();

}  // namespace vask::ui
