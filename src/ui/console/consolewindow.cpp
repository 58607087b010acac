#include "ui/console/consolewindow.h"

#include "events/eventbridge.h"
#include "input/keynames.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "ui/console/consolecompletion.h"
#include "ui/console/consoleinput.h"
#include "ui/console/consolewidget.h"
#include "ui/desktopwidget.h"
#include "ui/gfxhandler.h"
#include "ui/receivers.h"
#include "ui/windowwidget.h"
#include "utils/log/log.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vask {
namespace {

// Of a line that lists choices, in characters: it fits into the window as it opens.
constexpr std::size_t kListWidth = 60;

CConsole& ApplicationConsole() { return *CApplicationFactory::GetSingletonPtr()->GetConsole(); }

SConsoleNames ApplicationNames() {
  return {ApplicationConsole().GetCommandNames(), ApplicationConsole().GetVariableNames(),
          CTaskFactory::GetSingletonPtr()->GetTaskNames()};
}

// Several to a line.
void LogChoices(const std::vector<std::string>& choices) {
  CLog& log = *CLog::GetSingletonPtr();
  std::string line;
  for (const std::string& choice : choices) {
    if (!line.empty() && line.size() + choice.size() > kListWidth) {
      log << std::exchange(line, {}) << "\n";
    }
    line += (line.empty() ? "" : "  ") + choice;
  }
  if (!line.empty()) {
    log << line << "\n";
  }
}

}  // namespace

CConsoleWindow::CConsoleWindow()
    : myExecutions(std::make_shared<int>(0)), myGeneration(ui::GetReceiversGeneration()) {
  Build();
  CKeyboard::GetSingletonPtr()->AddInterceptor(this);
  CEventBridge::GetSingletonPtr()->HoldCursor();
}

CConsoleWindow::~CConsoleWindow() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->ReleaseCursor();
  }
  if (HasWidgets()) {
    DropConnections();
    delete myWindow;
  }
}

void CConsoleWindow::Build() {
  const auto& gfx = ui::GetGfxHandler();
  myWindow = new ui::CWindowWidget(ui::CDesktopWidget::GetSingletonPtr(), {10, 10, 400, 200}, false,
                                   "Dev-tool", gfx.Load("data/gui/background.png"));
  ui::CWidget* area = myWindow->GetClientArea();
  auto* const view = new ui::CConsoleWidget(area, "Dev-tool: console");
  myInput = new CConsoleInput(area, {10, 190, 400, 20}, false, "Dev-tool: input",
                              gfx.Load("data/gui/text_input.xml"), "data/gui/text_cursor.gif");
  myInput->SetLayout("parent.x", "parent.y + parent.h - 20", "parent.w", "20");
  myInput->GetKeySignal(CConsoleInput::kReturn).Connect(this, &CConsoleWindow::Execute);
  myInput->GetKeySignal(CConsoleInput::kUp).Connect(this, &CConsoleWindow::HistoryBack);
  myInput->GetKeySignal(CConsoleInput::kDown).Connect(this, &CConsoleWindow::HistoryForward);
  myInput->GetKeySignal(CConsoleInput::kTab).Connect(this, &CConsoleWindow::Complete);
  myInput->GetPageSignal().Connect(view, &ui::CConsoleWidget::ScrollPages);
}

// The slots are connected to the input line's signals, which die with it. Widgets of a forgotten
// desktop are still there, but will be deleted soon.
bool CConsoleWindow::HasWidgets() const {
  return GetConnectionCount() > 0 && ui::GetReceiversGeneration() == myGeneration;
}

bool CConsoleWindow::IsClosed() const { return !HasWidgets() || myWindow->IsClosed(); }

void CConsoleWindow::TurnClosedFlag() {
  if (HasWidgets()) {
    myWindow->SetClosed(!myWindow->IsClosed());
  }
}

bool CConsoleWindow::TakesPress(int key) {
  if (!HasWidgets() || (key != kEscapeKey && key != kF1Key)) {
    return false;
  }
  if (!myWindow->IsClosed()) {
    myWindow->Close();
    return true;
  }
  // Its owner, which may be paused, has yet to delete it; the line that F1 is bound to tells it to.
  return key == kEscapeKey;
}

void CConsoleWindow::Execute() {
  const std::string line = myInput->GetText();
  myInput->SetText({});
  myHistory.push_back(line);
  myPosition = 0;
  const std::shared_ptr<int> executions = myExecutions;
  ++*executions;
  ApplicationConsole().Execute(line, true);
  --*executions;  // this may be gone
}

void CConsoleWindow::HistoryBack() {
  const std::string typed = myInput->GetText();
  if (myPosition == 0 && !typed.empty()) {
    myHistory.push_back(typed);
  }
  const auto count = static_cast<std::int32_t>(myHistory.size());
  if (count > 0) {
    myPosition = std::min(myPosition + 1, count - 1);
    ShowEntry();
  }
}

void CConsoleWindow::HistoryForward() {
  if (myPosition > 0) {
    --myPosition;
    ShowEntry();
  }
}

void CConsoleWindow::ShowEntry() { myInput->SetText(*(myHistory.rbegin() + myPosition)); }

void CConsoleWindow::Complete() {
  const SCompletion found = CompleteWord(myInput->GetTextBeforeCursor(), ApplicationNames());
  myInput->TypeOver(found.typed, found.word);
  LogChoices(found.choices);
}

}  // namespace vask
