#pragma once

#include "designpatterns/singleton.h"
#include "designpatterns/walklist.h"
#include "events/keyboardlistener.h"
#include "events/mousehardware.h"
#include "events/mouselistener.h"
#include "events/windowlistener.h"

#include <memory>
#include <vector>

namespace vask {

// Connects the platform's events with their consumers: consumers register here, producers call the
// event entry points, and each event is passed to the listeners of its kind. Cursor requests go the
// other way, to the registered mouse hardware.
//
// Listeners are not owned; their destructors remove them. They may be added and removed during any
// dispatch: a removed listener is not called, an added one waits for the next event.
class CEventBridge : public CStaticSingleton<CEventBridge> {
 public:
  class CEventResizeBase {
   public:
    virtual ~CEventResizeBase() = default;
    virtual void OnResize(int width, int height) = 0;
  };

  // Forwards a resize to the owner's OnResize(width, height). A type that has none specialises
  // this.
  template <typename T>
  class CEventResize : public CEventResizeBase {
   public:
    explicit CEventResize(T* owner) : myOwner(owner) {}
    void OnResize(int width, int height) override { myOwner->OnResize(width, height); }

   private:
    T* myOwner;
  };

  CEventBridge();
  ~CEventBridge();
  CEventBridge(const CEventBridge&) = delete;
  CEventBridge& operator=(const CEventBridge&) = delete;

  // Resize receivers are called in the order of their registration; an owner may register twice.
  template <typename T>
  void AddResizeListener(T* owner) {
    AddAdapter(owner, std::make_unique<CEventResize<T>>(owner));
  }
  // Removes every adapter of the owner.
  template <typename T>
  void RemoveResizeListener(T* owner) {
    RemoveAdapters(owner);
  }

  // A listener that is added twice gets each event once; but a window listener is also a receiver
  // of resizes, and gets those once for each time that it was added.
  void AddWindowListener(IWindowListener* listener);
  void RemoveWindowListener(IWindowListener* listener);
  void AddKeyboardListener(IKeyboardListener* listener);
  void RemoveKeyboardListener(IKeyboardListener* listener);
  void AddMouseListener(IMouseListener* listener);
  void RemoveMouseListener(IMouseListener* listener);

  void SetMouseHardware(IMouseHardware* hardware);
  void ClearMouseHardware();

  // The cursor is shown while there are holds; then it is as the last call of ShowCursor or
  // HideCursor left it.
  void HoldCursor();
  void ReleaseCursor();

  // Forwarded to the mouse hardware; dropped while none is registered. During a hold the cursor
  // stays shown.
  void ShowCursor();
  void HideCursor();
  void ChangeCursor(int type);
  void GrabInput(bool on);

  // Stores the size, then calls every resize receiver.
  void Resize(int width, int height);
  void FocusEvent(bool gained);
  // `key` is an SDL 1.2 key symbol, `character` 1 to 127, or 0 for none.
  void KeyDown(int key, unsigned char character);
  void KeyUp(int key, unsigned char character);
  // Window pixels, and the motion since the last event.
  void MouseMove(int x, int y, int dx, int dy);
  // The numbers of input/buttons.h.
  void MouseButtonDown(int button);
  void MouseButtonUp(int button);

  // The size of the last resize; 0 before the first.
  int GetWidth() const { return myWidth; }
  int GetHeight() const { return myHeight; }

 private:
  struct SAdapter {
    const void* owner;
    std::unique_ptr<CEventResizeBase> adapter;
  };

  void WantCursor(bool isWanted);
  void ApplyCursor();
  void AddAdapter(const void* owner, std::unique_ptr<CEventResizeBase> adapter);
  void RemoveAdapters(const void* owner);

  std::vector<std::unique_ptr<SAdapter>> myAdapters;
  CWalkList<SAdapter> myAdapterOrder;
  int myWidth = 0;
  int myHeight = 0;
  CWalkList<IWindowListener> myWindowListeners;
  CWalkList<IKeyboardListener> myKeyboardListeners;
  CWalkList<IMouseListener> myMouseListeners;
  IMouseHardware* myMouseHardware = nullptr;
  bool myIsCursorWanted = true;  // by the last ShowCursor or HideCursor
  int myCursorHolds = 0;
};

}  // namespace vask
