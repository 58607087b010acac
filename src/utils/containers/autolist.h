#pragma once

#include "designpatterns/walkset.h"

namespace vask {

// Keeps one process-wide list of the live objects of T, in creation order. The list exists from the
// first object to the last; walks over it survive objects that are made or deleted meanwhile.
template <typename T>
class CAutoList {
 public:
  using List = CWalkSet<T>;

  // The list, created when there is none.
  static List& GetList() {
    if (ourList == nullptr) {
      ourList = new List;
    }
    return *ourList;
  }

  // The list, or null when no object lives.
  static List* PeekList() { return ourList; }

 protected:
  CAutoList() { GetList().Append(Derived()); }
  ~CAutoList() {
    if (ourList == nullptr) {
      return;
    }
    ourList->Remove(Derived());
    if (ourList->IsEmpty()) {
      delete ourList;
      ourList = nullptr;
    }
  }
  CAutoList(const CAutoList&) : CAutoList() {}
  CAutoList& operator=(const CAutoList&) = default;

 private:
  // Only the address is taken. The T around this base is not there yet, or no more, which the
  // sanitizer's check of the type would take for a wrong cast.
  __attribute__((no_sanitize("vptr"))) T* Derived() { return static_cast<T*>(this); }

  static inline List* ourList = nullptr;
};

}  // namespace vask
