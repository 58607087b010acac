#include "tasks/taskkeyboard.h"

#include "console/consoleparams.h"
#include "input/keyboard.h"
#include "input/keynames.h"
#include "input/multikeyevent.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace vask {

namespace {

const CTaskTypeRegistrar<CTaskKeyboard> theRegistrar("keyboard");

constexpr int kDefaultPriority = 10;

void ExecuteLine(const std::string& line) {
  CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(line, false);
}

// A key that runs a console line when it goes down.
class CKeyEventCommand : public IKeyEvent {
 public:
  explicit CKeyEventCommand(std::string line) : myLine(std::move(line)) {}
  bool Trigger(int) override {
    ExecuteLine(myLine);
    return true;
  }

 private:
  std::string myLine;
};

// Keys that run a console line when the last of them goes down.
class CMultiKeyEventCommand : public CMultiKeyEvent {
 public:
  CMultiKeyEventCommand(std::vector<int> keys, std::string line)
      : CMultiKeyEvent(std::move(keys)), myLine(std::move(line)) {}
  bool Trigger(int key) override {
    if (!CMultiKeyEvent::Trigger(key)) {
      return false;
    }
    ExecuteLine(myLine);
    return true;
  }

 private:
  std::string myLine;
};

// The names between the blanks. A blank between double quotes separates nothing; a quote without a
// second one is a key like any other.
std::vector<std::string> SplitKeyNames(std::string_view text) {
  std::vector<std::string> names(1);
  bool isQuoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') {
      isQuoted = !isQuoted && text.find('"', i + 1) != std::string_view::npos;
    }
    if (text[i] == ' ' && !isQuoted) {
      names.emplace_back();
    } else {
      names.back() += text[i];
    }
  }
  std::erase(names, "");
  return names;
}

void BindOne(const std::string& name, const std::string& line, int priority) {
  const CSmartPtr<IKeyEvent> event(new CKeyEventCommand(line));
  CKeyboard::GetSingletonPtr()->BindKey(KeyFromName(name), event, priority);
}

void BindSeveral(const std::string& names, const std::string& line, int priority) {
  std::vector<int> keys;
  std::ranges::transform(SplitKeyNames(names), std::back_inserter(keys), KeyFromName);
  const CSmartPtr<IKeyEvent> event(new CMultiKeyEventCommand(keys, line));
  CKeyboard::GetSingletonPtr()->BindKeys(keys, event, priority);
}

}  // namespace

bool CTaskKeyboard::Start() {
  myCommands.reset(CApplicationFactory::GetSingletonPtr()->NewConsole());
  myCommands->AddCommand("bind", &myCommandBind);
  return true;
}

void CTaskKeyboard::Update() { CKeyboard::GetSingletonPtr()->Update(); }

bool CTaskKeyboard::ExecuteCommand(const std::string& line) {
  if (myCommands != nullptr) {
    myCommands->Execute(line, false);
  }
  return true;
}

std::string CTaskKeyboard::CCommandBind::Execute(CConsoleParams* params) {
  if (params->Size() < 2) {
    return Execute();
  }
  const bool isNamed = params->IsType(0, CVariable::kString);
  const std::string names = isNamed ? params->GetString(0) : std::string();
  const int number = isNamed ? kKeyCount : ToInteger(params->GetNumber(0));
  if (!params->IsType(1, CVariable::kString)) {
    return Execute();
  }
  const std::string line = params->GetString(1);
  const int priority =
      params->Has(2, CVariable::kNumber) ? ToInteger(params->GetNumber(2)) : kDefaultPriority;
  if (names.find(' ') != std::string::npos) {
    BindSeveral(names, line, priority);
    return {};
  }
  // A number names no key; all it does is to be no error, unless it is the one that means none.
  if (names.empty() && number == kKeyCount) {
    return Execute();
  }
  BindOne(names, line, priority);
  return {};
}

std::string CTaskKeyboard::CCommandBind::Execute() {
  return "[ERROR] You cannot bind unless you give us something to bind to something\n";
}

}  // namespace vask
