#include "ui/uitask.h"

#include "events/eventbridge.h"
#include "input/keyboard.h"
#include "kernel/taskfactory.h"
#include "ui/desktopwidget.h"
#include "ui/event.h"
#include "ui/receivers.h"
#include "ui/vasktouikeyboard.h"
#include "ui/vasktouimouse.h"

namespace vask {
namespace {

const CTaskTypeRegistrar<CUiTask> theRegistrar("ui");

// Before the bound lines, which have 10.
constexpr int kGatePriority = 5;

ui::CDesktopWidget& Desktop() { return *ui::CDesktopWidget::GetSingletonPtr(); }

}  // namespace

CUiTask::CUiTask()
    : myMouse(std::make_unique<CVaskToUiMouse>()),
      myKeyboard(std::make_unique<CVaskToUiKeyboard>()) {}

// The base classes unregister from the event bridge and the keyboard.
CUiTask::~CUiTask() = default;

bool CUiTask::Start() {
  myIsRunning = true;
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.AddKeyboardListener(this);
  bridge.AddMouseListener(this);
  bridge.AddWindowListener(this);
  CKeyboard::GetSingletonPtr()->AddKeyEvent(this, kGatePriority);
  OnResize(bridge.GetWidth(), bridge.GetHeight());
  return true;
}

void CUiTask::Update() {
  if (myIsRunning) {
    Desktop().UpdateKeyRepeat();
  }
}

void CUiTask::Exit() {
  myIsRunning = false;
  ui::CDesktopWidget::DeleteSingleton();
}

void CUiTask::OnMouseMove(int x, int y) {
  if (!myIsRunning) {
    return;
  }
  const ui::SPoint position{x, y};
  myMouse->MoveTo(position);
  ui::CMouseEvent event(ui::IEvent::kMouseMove, position, myMouse->GetButtons(), myMouse.get());
  Desktop().HandleEvent(event);
}

void CUiTask::OnMouseButtonDown(int button) {
  if (myIsRunning) {
    myMouse->Press(button);
    SendButton(ui::IEvent::kMouseButtonDown, button);
  }
}

void CUiTask::OnMouseButtonUp(int button) {
  if (myIsRunning) {
    myMouse->Release(button);
    SendButton(ui::IEvent::kMouseButtonUp, button);
  }
}

void CUiTask::SendButton(int type, int button) {
  ui::CMouseEvent event(type, myMouse->GetPosition(), button, myMouse.get());
  Desktop().HandleEvent(event);
}

void CUiTask::OnUiKeyDown(int key) { SendKey(ui::IEvent::kKeyDown, key); }

void CUiTask::OnUiKeyUp(int key) { SendKey(ui::IEvent::kKeyUp, key); }

void CUiTask::SendKey(int type, int key) {
  if (myIsRunning) {
    ui::CKeyboardEvent event(type, key, GetCharacter());
    Desktop().HandleEvent(event);
  }
}

void CUiTask::OnResize(int width, int height) {
  if (myIsRunning) {
    Desktop().Resize(ui::SSize{width, height});
  }
}

bool CUiTask::StopsKey() { return myIsRunning && ui::GetKeyboardReceiver() != nullptr; }

}  // namespace vask
