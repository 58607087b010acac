#include "events/eventbridge.h"

#include <utility>

namespace vask {

// The listeners' destructors are defined here, so that the interfaces need not know the bridge.
IWindowListener::~IWindowListener() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveWindowListener(this);
  }
}

IKeyboardListener::~IKeyboardListener() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveKeyboardListener(this);
  }
}

IMouseListener::~IMouseListener() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveMouseListener(this);
  }
}

CEventBridge::CEventBridge() = default;
CEventBridge::~CEventBridge() = default;

void CEventBridge::AddAdapter(const void* owner, std::unique_ptr<CEventResizeBase> adapter) {
  myAdapters.push_back(std::make_unique<SAdapter>(SAdapter{owner, std::move(adapter)}));
  myAdapterOrder.Append(myAdapters.back().get());
}

void CEventBridge::RemoveAdapters(const void* owner) {
  std::erase_if(myAdapters, [&](const std::unique_ptr<SAdapter>& entry) {
    return entry->owner == owner && myAdapterOrder.Remove(entry.get());
  });
}

void CEventBridge::AddWindowListener(IWindowListener* listener) {
  AddResizeListener(listener);
  myWindowListeners.AppendOnce(listener);
}

void CEventBridge::RemoveWindowListener(IWindowListener* listener) {
  RemoveResizeListener(listener);
  myWindowListeners.Remove(listener);
}

void CEventBridge::AddKeyboardListener(IKeyboardListener* listener) {
  myKeyboardListeners.AppendOnce(listener);
}

void CEventBridge::RemoveKeyboardListener(IKeyboardListener* listener) {
  myKeyboardListeners.Remove(listener);
}

void CEventBridge::AddMouseListener(IMouseListener* listener) {
  myMouseListeners.AppendOnce(listener);
}

void CEventBridge::RemoveMouseListener(IMouseListener* listener) {
  myMouseListeners.Remove(listener);
}

void CEventBridge::SetMouseHardware(IMouseHardware* hardware) {
  myMouseHardware = hardware;
  if (myCursorHolds > 0) {
    ApplyCursor();
  }
}

void CEventBridge::ClearMouseHardware() { myMouseHardware = nullptr; }

void CEventBridge::HoldCursor() {
  ++myCursorHolds;
  ApplyCursor();
}

void CEventBridge::ReleaseCursor() {
  --myCursorHolds;
  ApplyCursor();
}

void CEventBridge::ShowCursor() { WantCursor(true); }

void CEventBridge::HideCursor() { WantCursor(false); }

void CEventBridge::WantCursor(bool isWanted) {
  if (myMouseHardware != nullptr) {
    myIsCursorWanted = isWanted;
    ApplyCursor();
  }
}

void CEventBridge::ApplyCursor() {
  if (myMouseHardware == nullptr) {
    return;
  }
  if (myIsCursorWanted || myCursorHolds > 0) {
    myMouseHardware->ShowCursor();
  } else {
    myMouseHardware->HideCursor();
  }
}

void CEventBridge::ChangeCursor(int type) {
  if (myMouseHardware != nullptr) {
    myMouseHardware->ChangeCursor(type);
  }
}

void CEventBridge::GrabInput(bool on) {
  if (myMouseHardware != nullptr) {
    myMouseHardware->GrabInput(on);
  }
}

void CEventBridge::Resize(int width, int height) {
  myWidth = width;
  myHeight = height;
  // An owner may leave from its own OnResize, which frees the adapter under the call; so nothing
  // of the entry may be touched after it.
  myAdapterOrder.ForEachPresent([=](SAdapter* entry) { entry->adapter->OnResize(width, height); });
}

void CEventBridge::FocusEvent(bool gained) {
  myWindowListeners.ForEachPresent([=](IWindowListener* listener) { listener->OnFocus(gained); });
}

void CEventBridge::KeyDown(int key, unsigned char character) {
  myKeyboardListeners.ForEachPresent([=](IKeyboardListener* listener) {
    listener->SetCharacter(character);
    listener->OnKeyDown(key);
  });
}

void CEventBridge::KeyUp(int key, unsigned char character) {
  myKeyboardListeners.ForEachPresent([=](IKeyboardListener* listener) {
    listener->SetCharacter(character);
    listener->OnKeyUp(key);
  });
}

void CEventBridge::MouseMove(int x, int y, int dx, int dy) {
  myMouseListeners.ForEachPresent([=, this](IMouseListener* listener) {
    listener->OnMouseMove(x, y);
    if (myMouseListeners.Contains(listener)) {
      listener->OnMouseMoveRelative(dx, dy);
    }
  });
}

void CEventBridge::MouseButtonDown(int button) {
  myMouseListeners.ForEachPresent(
      [=](IMouseListener* listener) { listener->OnMouseButtonDown(button); });
}

void CEventBridge::MouseButtonUp(int button) {
  myMouseListeners.ForEachPresent(
      [=](IMouseListener* listener) { listener->OnMouseButtonUp(button); });
}

}  // namespace vask
