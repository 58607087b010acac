#pragma once

#include "designpatterns/singleton.h"

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace vask {

// Counts, for every object of one type, the smart pointers that hold it.
template <typename T>
class CSmartPtrManager : public CStaticSingleton<CSmartPtrManager<T>> {
 public:
  void Register(T* object) { ++myCounts[object]; }

  // Removes one registration; with the last one the object is deleted. Not inlined: the compiler,
  // which does not know the counts, would warn of uses after a delete that does not happen.
  [[gnu::noinline]] void Release(T* object) {
    const auto found = myCounts.find(object);
    if (found == myCounts.end() || --found->second > 0) {
      return;
    }
    myCounts.erase(found);
    delete object;
  }

  // Removes every registration of an object that is deleted by other means than its last pointer,
  // as one on the stack or a member is: else the next object at its address would inherit the count
  // and never be freed. Called from the object's destructor; pointers that still hold it are stale
  // and must go before a new object can be held under the same address.
  void Forget(T* object) { myCounts.erase(object); }

  // How many smart pointers hold the object.
  std::size_t Count(const T* object) const {
    const auto found = myCounts.find(const_cast<T*>(object));
    return found == myCounts.end() ? 0 : found->second;
  }

 private:
  std::unordered_map<T*, std::size_t> myCounts;
};

// A shared owner of an object on the heap. The manager of the pointer's type keeps the count, by
// the object's address: so an object may be held again from its plain pointer, but only by smart
// pointers of one and the same type (sprites of every kind: CSmartPtr<CSprite>).
template <typename T>
class CSmartPtr {
 public:
  CSmartPtr() = default;
  explicit CSmartPtr(T* object) : myObject(object) { Register(); }
  CSmartPtr(const CSmartPtr& other) : myObject(other.myObject) { Register(); }
  CSmartPtr(CSmartPtr&& other) noexcept : myObject(std::exchange(other.myObject, nullptr)) {}
  ~CSmartPtr() { Reset(); }

  CSmartPtr& operator=(CSmartPtr other) noexcept {
    std::swap(myObject, other.myObject);
    return *this;
  }

  T* Get() const { return myObject; }
  T* operator->() const { return myObject; }
  T& operator*() const { return *myObject; }
  explicit operator bool() const { return myObject != nullptr; }
  bool operator==(const CSmartPtr& other) const { return myObject == other.myObject; }

  // Releases the object, which is deleted when no other pointer holds it.
  void Reset() {
    if (T* object = std::exchange(myObject, nullptr)) {
      CSmartPtrManager<T>::GetSingletonPtr()->Release(object);
    }
  }

 private:
  void Register() {
    if (myObject != nullptr) {
      CSmartPtrManager<T>::GetSingletonPtr()->Register(myObject);
    }
  }

  T* myObject = nullptr;
};

}  // namespace vask
