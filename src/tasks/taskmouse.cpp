#include "tasks/taskmouse.h"

#include "console/console.h"
#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "events/eventbridge.h"
#include "input/cursornames.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"

namespace vask {

namespace {

const CTaskTypeRegistrar<CTaskMouse> theRegistrar("mouse");

class CConsoleCommandCursorHide : public CConsoleCommand {
 public:
  using CConsoleCommand::Execute;
  std::string Execute() override {
    CEventBridge::GetSingletonPtr()->HideCursor();
    return {};
  }
};

class CConsoleCommandCursorShow : public CConsoleCommand {
 public:
  using CConsoleCommand::Execute;
  std::string Execute() override {
    CEventBridge::GetSingletonPtr()->ShowCursor();
    return {};
  }
};

class CConsoleCommandCursorChangeTo : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kString)) {
      return "[ERROR] Could not recognize your cursor type";
    }
    CEventBridge::GetSingletonPtr()->ChangeCursor(CursorTypeFromName(params->GetString(0)));
    return {};
  }
  std::string Execute() override {
    return "[ERROR] Needs a parameter to define to what we change our cursor( like arrow, cross, "
           "text... )";
  }
};

class CConsoleCommandCaptureInput : public CConsoleCommand {
 public:
  std::string Execute(CConsoleParams* params) override {
    if (!params->Has(0, CVariable::kNumber)) {
      return Execute();
    }
    CEventBridge::GetSingletonPtr()->GrabInput(ToInteger(params->GetNumber(0)) != 0);
    return {};
  }
  std::string Execute() override { return "[ERROR] Input need to be of number"; }
};

}  // namespace

CTaskMouse::CTaskMouse() = default;

CTaskMouse::~CTaskMouse() = default;

bool CTaskMouse::Start() {
  Exit();
  myCursorHide = std::make_unique<CConsoleCommandCursorHide>();
  myCursorShow = std::make_unique<CConsoleCommandCursorShow>();
  myCursorChangeTo = std::make_unique<CConsoleCommandCursorChangeTo>();
  myCaptureInput = std::make_unique<CConsoleCommandCaptureInput>();
  myCommands.reset(CApplicationFactory::GetSingletonPtr()->NewConsole());
  myCommands->AddCommand("CursorHide", myCursorHide.get());
  myCommands->AddCommand("CursorShow", myCursorShow.get());
  myCommands->AddCommand("CursorChangeTo", myCursorChangeTo.get());
  myCommands->AddCommand("CaptureInput", myCaptureInput.get());
  return true;
}

void CTaskMouse::Exit() {
  myCommands.reset();
  myCursorHide.reset();
  myCursorShow.reset();
  myCursorChangeTo.reset();
  myCaptureInput.reset();
}

bool CTaskMouse::ExecuteCommand(const std::string& line) {
  if (myCommands != nullptr) {
    myCommands->Execute(line, false);
  }
  return true;
}

}  // namespace vask
