#pragma once

// The receivers of events that do not go to the widget under the pointer: one focus, one keyboard
// receiver, one widget under the mouse and one capture list for the process, since there is one
// user interface. None is owned; a receiver that dies is removed.
namespace vask::ui {

class CKeyboardEvent;
class CMouseEvent;
class CWidget;
class IEventBase;

// The widget becomes the focus and the keyboard receiver; null clears both. Calls no
// handler.
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

// Sends the event to the receivers on the list, in order, except those that leave before their
// turn.
void SendToMouseCapture(CMouseEvent& event);
// Does nothing when there is no keyboard receiver.
void SendToKeyboardReceiver(CKeyboardEvent& event);

// Removes a receiver from the capture list, and as the keyboard receiver.
void ForgetReceiver(IEventBase* receiver);
// Clears the focus, the keyboard, the widget under the mouse and the capture list. Calls no
// handler.
void ClearReceivers();
// Changes with each ClearReceivers(), so that the caller of a handler can tell whether it happened.
unsigned GetReceiversGeneration();

}  // namespace vask::ui
