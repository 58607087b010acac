#pragma once

#include <algorithm>
#include <set>
#include <vector>

namespace vask::fuzz {

// What is bound: the keys, and the priority. The newest comes first where priorities are equal.
struct SBinding {
  std::set<int> keys;
  int priority;
  int number;
  bool operator<(const SBinding& other) const {
    return priority != other.priority ? priority < other.priority : number > other.number;
  }
};

// Bindings, and which keys are held.
class CPlainKeyboard {
 public:
  void Bind(const SBinding& binding) { myBindings.insert(binding); }
  bool IsHeld(int key) const { return myHeld.contains(key); }
  void Release(int key) { myHeld.erase(key); }
  // The numbers of the bindings that the key sets off, in order.
  std::vector<int> Press(int key) {
    myHeld.insert(key);
    std::vector<int> numbers;
    for (const SBinding& binding : myBindings) {
      if (binding.keys.contains(key) && std::ranges::includes(myHeld, binding.keys)) {
        numbers.push_back(binding.number);
      }
    }
    return numbers;
  }

 private:
  std::set<SBinding> myBindings;
  std::set<int> myHeld;
};

}  // namespace vask::fuzz
