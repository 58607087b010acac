// In place of the library's: counts what lives. The task type "census" prints at each command its
// name, the bytes of the heap, and the number of living objects of each class that has a virtual
// function, by the name of its table.

#include "kernel/taskfactory.h"
#include "ui/console/loglistenerforconsole.h"
#include "utils/log/log.h"

#include <SDL_mixer.h>
#include <dlfcn.h>
#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>
#include <string_view>

namespace {

// In front of each block: a ring of all that live.
struct alignas(std::max_align_t) SBlock {
  SBlock* before;
  SBlock* after;
};
constinit SBlock ourRing{&ourRing, &ourRing};

std::map<std::string, int> CountLiving() {
  std::map<std::string, int> counts;
  for (const SBlock* block = ourRing.after; block != &ourRing; block = block->after) {
    Dl_info table{};
    if (dladdr(*reinterpret_cast<void* const*>(block + 1), &table) != 0 &&
        table.dli_sname != nullptr && std::string_view(table.dli_sname).starts_with("_ZTV")) {
      ++counts[table.dli_sname];
    }
  }
  return counts;
}

// The console keeps every line of the log, which is meant; from here on it does not hear of them.
class CCensus : public vask::CTask {
 public:
  CCensus() {
    vask::CLog::GetSingletonPtr()->RemoveListener(
        vask::ui::CLogListenerForConsole::GetSingletonPtr());
  }
  void Update() override {}
  bool ExecuteCommand(const std::string& name) override {
    Mix_HaltChannel(-1);
    const struct mallinfo2 heap = mallinfo2();
    std::cout << "census " << name << " " << heap.uordblks + heap.hblkhd;
    for (const auto& [table, count] : CountLiving()) {
      std::cout << " " << table << "=" << count;
    }
    std::cout << "\n";
    return true;
  }
};
const vask::CTaskTypeRegistrar<CCensus> theRegistrar("census");

}  // namespace

// Not inline, where the compiler would take them for a mismatched pair.
[[gnu::noinline]] void* operator new(std::size_t size) {
  void* const memory = std::malloc(sizeof(SBlock) + std::max(size, sizeof(void*)));
  auto* const block = new (memory) SBlock{&ourRing, ourRing.after};
  ourRing.after->before = block;
  ourRing.after = block;
  return new (block + 1) void*(nullptr);
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
  if (memory != nullptr) {
    SBlock* const block = static_cast<SBlock*>(memory) - 1;
    block->before->after = block->after;
    block->after->before = block->before;
    std::free(block);
  }
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
