#include "tasks/taskdebug.h"

#include "console/consoleparams.h"
#include "gfx/sprite/screenlayer.h"
#include "gfx/text/fontloader.h"
#include "gfx/text/textsprite.h"
#include "input/mouse.h"
#include "input/playbackmouse.h"
#include "input/recordmouse.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "ui/desktopwidget.h"
#include "utils/assert.h"
#include "utils/log/log.h"

#include <algorithm>

namespace vask {
namespace {

const CTaskTypeRegistrar<CTaskDebug> theRegistrar("debug");

int ourFrameRateShows = 1;
const CConsoleVariableRegistrar theVariableRegistrar("debug_show_fps", ourFrameRateShows);

constexpr unsigned kSecond = 1000;  // milliseconds

constexpr int kTextWidth = 75;
constexpr int kTextHeight = 20;
// In front of the game's pictures and behind every widget, so that a console covers the text.
constexpr int kTextDepth = 0;
// From the upper right corner of the screen, where no console opens.
constexpr int kTextMargin = 10;
constexpr int kBackdropWidth = 125;
constexpr int kBackdropHeight = 25;
constexpr int kBackdropAlpha = 128;

// The text is white, and may be over any picture of the game.
Gfx::ImagePtr NewBackdrop() {
  const CColor dark(16, 16, 24);
  const Gfx::ImagePtr picture(Gfx::NewBuffer(kBackdropWidth, kBackdropHeight));
  for (int y = 0; y < kBackdropHeight; ++y) {
    for (int x = 0; x < kBackdropWidth; ++x) {
      picture->PutPixel(x, y, dark);
    }
  }
  return Gfx::ImagePtr(picture->CloneWithAlpha(kBackdropAlpha));
}

CSpritePtr NewFrameRateText() {
  auto text = std::make_unique<CTextSprite>(LoadFont("system"), kTextWidth, kTextHeight);
  text->SetBackdrop(NewBackdrop());
  text->SetZ(kTextDepth);
  text->SetPosition(std::max(Gfx::ScreenRect().w - kTextWidth - kTextMargin, kTextMargin),
                    kTextMargin);
  text->SetParent(CScreenLayer::GetSingletonPtr());
  return CSpritePtr(text.release());
}

// Drags the text, but for what lies under a widget.
class CFrameRateElement : public zogui::CGuiElement {
 public:
  using CGuiElement::CGuiElement;

  void OnMouseButtonDown(int button) override {
    const CMouse& mouse = *CMouse::GetSingletonPtr();
    if (!ui::CDesktopWidget::HasWidgetAt({mouse.GetPointerX(), mouse.GetPointerY()})) {
      CGuiElement::OnMouseButtonDown(button);
    }
  }
};

std::string Complain(const char* usage) {
  CLog::GetSingletonPtr()->Error() << usage << "\n";
  return {};
}

}  // namespace

CTaskDebug::~CTaskDebug() { ForgetCommands(); }

bool CTaskDebug::Start() {
  myCommands.reset(CApplicationFactory::GetSingletonPtr()->NewConsole());
  for (const auto& [name, command] : GetDebugCommands()) {
    myCommands->AddCommand(name, command);
  }
  myFrameRateText = NewFrameRateText();
  myFrameRateElement = std::make_unique<CFrameRateElement>(myFrameRateText.Get());
  return true;
}

// The playback comes last: a listener of its events may stop the task.
void CTaskDebug::Update() {
  if (myConsoleWindow != nullptr && myConsoleWindow->IsClosed()) {
    myConsoleWindow.reset();
  }
  CountFrame();
  ShowFrameRate();
  if (myInputDevice != nullptr) {
    myInputDevice->Update();
  }
}

void CTaskDebug::CountFrame() {
  ++myFrames;
  const unsigned now = myTimer.GetTime();
  if (now - myLastFrameRateTime < kSecond) {
    return;
  }
  const auto frames = static_cast<float>(myFrames);
  if (myFrameRate.average < 1.0F) {
    myFrameRate.average = frames;
  }
  myFrameRate.average = (myFrameRate.average + frames) * 0.5F;
  myFrameRate.lowest = std::min(myFrameRate.lowest, myFrames);
  myFrameRate.highest = std::max(myFrameRate.highest, myFrames);
  if (myFrameRateText) {
    myFrameRateText->SetText("Fps: " + std::to_string(myFrames));
  }
  myFrames = 0;
  myLastFrameRateTime = now;
}

void CTaskDebug::ShowFrameRate() {
  const bool isShown = ourFrameRateShows != 0;
  if (myFrameRateText) {
    myFrameRateText->SetVisible(isShown);
    myFrameRateElement->SetDraggable(isShown);
  }
}

void CTaskDebug::Exit() {
  ForgetCommands();
  myConsoleWindow.reset();
  myFrameRateElement.reset();
  myFrameRateText.Reset();
  myCommands.reset();
  myInputDevice.reset();
}

// The commands are those of all debug tasks.
void CTaskDebug::ForgetCommands() {
  for (const auto& [name, command] : GetDebugCommands()) {
    command->ForgetTask(this);
  }
}

bool CTaskDebug::ExecuteCommand(const std::string& line) {
  if (myCommands == nullptr) {
    return false;
  }
  for (const auto& [name, command] : GetDebugCommands()) {
    command->SetTask(this);
  }
  myCommands->Execute(line, false);
  return true;
}

void CTaskDebug::ToggleConsole() {
  if (myConsoleWindow != nullptr && myConsoleWindow->IsExecuting()) {
    myConsoleWindow->TurnClosedFlag();
    return;
  }
  const bool isOpen = myConsoleWindow != nullptr && myConsoleWindow->HasWidgets();
  myConsoleWindow.reset();
  if (!isOpen) {
    myConsoleWindow = std::make_unique<CConsoleWindow>();
  }
}

void CTaskDebug::RecordInput(const std::string& fileName) {
  myInputDevice.reset();
  myInputDevice = std::make_unique<CRecordMouse>(fileName);
}

void CTaskDebug::PlaybackInput(const std::string& fileName) {
  myInputDevice.reset();
  myInputDevice = std::make_unique<CPlaybackMouse>(fileName);
}

CTaskDebug::SFrameRate CTaskDebug::GetFrameRate() const { return myFrameRate; }

void CDebugCommand::ForgetTask(const CTaskDebug* task) {
  if (myTask == task) {
    myTask = nullptr;
  }
}

std::string CConsoleCmdToggleConsole::Execute() {
  if (GetTask() != nullptr) {
    GetTask()->ToggleConsole();
  }
  return {};
}

std::string CConsoleCmdBanAsserts::Execute(CConsoleParams* params) {
  if (!params->Has(0, CVariable::kNumber)) {
    return Execute();
  }
  BanAsserts(ToInteger(params->GetNumber(0)) != 0);
  return {};
}

std::string CConsoleCmdBanAsserts::Execute() {
  return Complain(
      "BanAsserts - command, need atleast on parameter. 1 = ban assert dialog box, 0 = allow "
      "assert dialog box.");
}

std::string CConsoleCmdRecordInput::Execute(CConsoleParams* params) {
  if (!params->Has(0, CVariable::kString)) {
    return Execute();
  }
  if (GetTask() != nullptr) {
    GetTask()->RecordInput(params->GetString(0));
  }
  return {};
}

std::string CConsoleCmdRecordInput::Execute() {
  return Complain(
      "RecordInput -command, requires atleast one parameter, the file recording is saved to.");
}

std::string CConsoleCmdPlaybackInput::Execute(CConsoleParams* params) {
  if (!params->Has(0, CVariable::kString)) {
    return Execute();
  }
  if (GetTask() != nullptr) {
    GetTask()->PlaybackInput(params->GetString(0));
  }
  return {};
}

std::string CConsoleCmdPlaybackInput::Execute() {
  return Complain(
      "PlaybackInput -command, requires atleast one parameter, the file recording is saved to.");
}

// Never destroyed: consoles of tasks that die at the end of the process still hold them.
const std::array<SDebugCommand, 4>& GetDebugCommands() {
  static const auto& commands = *new std::array<SDebugCommand, 4>{{
      {"ToggleConsole", new CConsoleCmdToggleConsole},
      {"BanAsserts", new CConsoleCmdBanAsserts},
      {"RecordInput", new CConsoleCmdRecordInput},
      {"PlaybackInput", new CConsoleCmdPlaybackInput},
  }};
  return commands;
}

}  // namespace vask
