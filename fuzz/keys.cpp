// Keys are bound by their names, alone and several at a time, and go down and up: the lines run as
// on a plain keyboard. At last any text is a line for the keyboard.

#include "models/keys.h"

#include "console/consolecommand.h"
#include "console/consoleparams.h"
#include "events/eventbridge.h"
#include "fuzz.h"
#include "input/keyboard.h"
#include "input/keynames.h"
#include "kernel/applicationfactory.h"
#include "tasks/taskkeyboard.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

// The numbers of the bindings whose lines have run.
struct SHit : vask::CConsoleCommand {
  std::string Execute(vask::CConsoleParams* params) override {
    bindings.push_back(static_cast<int>(params->GetNumber(0)));
    return {};
  }
  std::string Execute() override { return {}; }
  std::vector<int> bindings;
};

// A key whose name stands for itself in a console line, also beside others.
int TakeKey(FuzzedDataProvider& input) {
  const int key = input.ConsumeIntegralInRange(1, vask::kKeyCount - 1);
  const std::string name = vask::NameFromKey(key);
  vask::fuzz::Require(vask::KeyFromName(name) == (name.empty() ? 0 : key));
  return name.empty() || name == "," || name == ";" || name == "\"" ? vask::kEscapeKey : key;
}

// Returns the line that makes the binding.
std::string TakeBinding(FuzzedDataProvider& input, vask::fuzz::SBinding& binding) {
  binding.priority = input.ConsumeIntegralInRange(-3, 20);
  std::string names;
  for (int i = input.ConsumeIntegralInRange(1, 3); i > 0; --i) {
    const int key = TakeKey(input);
    names += (names.empty() ? "" : " ") + vask::NameFromKey(key);
    binding.keys.insert(key);
  }
  return "bind(\"" + names + "\", hit(" + std::to_string(binding.number) + "), " +
         std::to_string(binding.priority) + ")";
}

// Presses the key, or releases it when it is held; returns what has to run.
std::vector<int> Push(int key, vask::fuzz::CPlainKeyboard& plain) {
  vask::CEventBridge& bridge = *vask::CEventBridge::GetSingletonPtr();
  if (plain.IsHeld(key)) {
    bridge.KeyUp(key, 0);
    plain.Release(key);
    return {};
  }
  bridge.KeyDown(key, 0);
  return plain.Press(key);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int kMostSteps = 60;
  FuzzedDataProvider input(data, size);
  SHit hit;
  vask::CApplicationFactory::GetSingletonPtr()->GetConsole()->AddCommand("hit", &hit);
  vask::CKeyboard::GetSingletonPtr();  // which hears of no key before
  vask::CTaskKeyboard task;
  task.Start();
  vask::fuzz::CPlainKeyboard plain;
  for (int number = 0; input.remaining_bytes() > 3 && number < kMostSteps; ++number) {
    if (input.ConsumeBool()) {
      vask::fuzz::SBinding binding{{}, 0, number};
      task.ExecuteCommand(TakeBinding(input, binding));
      plain.Bind(binding);
      continue;
    }
    hit.bindings.clear();
    const std::vector<int> expected = Push(TakeKey(input), plain);
    task.Update();
    vask::fuzz::Require(hit.bindings == expected);
  }
  const std::string text = input.ConsumeRemainingBytesAsString();
  const int key = vask::KeyFromName(text);
  vask::fuzz::Require(key == 0 || vask::NameFromKey(key) == text);
  task.ExecuteCommand(text);
  task.Exit();
  vask::CKeyboard::DeleteSingleton();
  vask::CApplicationFactory::DeleteSingleton();
  return 0;
}
