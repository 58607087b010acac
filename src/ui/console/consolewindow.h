#pragma once

#include "input/keyboard.h"
#include "utils/signalslot/signaltarget.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vask::ui {
class CConsoleWidget;
class CWindowWidget;
}  // namespace vask::ui

namespace vask {

class CConsoleInput;

// The console over the running game: a window that shows the log, and a line below it whose text
// the application console executes. Up and down browse the history, Tab completes names. Escape and
// F1 close it, with or without the focus, and then reach nothing else. The pointer shows while
// there is a console window.
//
// The widgets are on the desktop and may die with it at any time. An executed line may close or
// delete the console window.
class CConsoleWindow : public css::CSignalTarget, public IKeyInterceptor {
 public:
  CConsoleWindow();
  ~CConsoleWindow() override;

  // The slots of the input line's keys.
  void Execute();
  void HistoryBack();
  void HistoryForward();
  void Complete();

  // Whether the widgets are still on the desktop.
  bool HasWidgets() const;
  // Whether the user has closed it, or its widgets have died.
  bool IsClosed() const;
  bool IsExecuting() const { return *myExecutions > 0; }
  // Marks the window as to be closed, or takes that back.
  void TurnClosedFlag();
  // Closes it on its keys. Until its owner has deleted it, Escape is still taken.
  bool TakesPress(int key) override;

 private:
  void Build();
  void ShowEntry();

  ui::CWindowWidget* myWindow = nullptr;  // owned by the desktop, as all widgets in it
  CConsoleInput* myInput = nullptr;
  std::vector<std::string> myHistory;  // oldest first
  std::int32_t myPosition = 0;         // of the shown entry, 0 for the newest
  std::shared_ptr<int> myExecutions;   // running ones; the count outlives the window
  unsigned myGeneration;               // of the receivers when it was built
};

}  // namespace vask
