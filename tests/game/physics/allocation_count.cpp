#include <cstdlib>
#include <new>

#include "game/physics/physics_support.h"

// A file of its own: inlined into callers, the pair below looks to the compiler like a mismatch.

namespace {
int theAllocations = 0;
}

int brumble::AllocationCount() { return theAllocations; }

void* operator new(std::size_t size) {
  ++theAllocations;
  if (void* const memory = std::malloc(size != 0 ? size : 1)) {
    return memory;
  }
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
