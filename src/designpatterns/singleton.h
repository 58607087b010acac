#pragma once

#include <utility>

namespace vask {

// Process-wide objects that come into being on first use.
//
// The pointer is constant-initialised, so any static initialiser may use a singleton.
// Destructors must use PeekSingletonPtr(): it never creates, so nothing rises again at exit.
template <typename T>
class CStaticSingleton {
 public:
  // The instance, created with `new T` by the first call. Never null.
  static T* GetSingletonPtr() {
    if (ourInstance == nullptr) {
      ourInstance = new T;
    }
    return ourInstance;
  }

  static T& GetSingleton() { return *GetSingletonPtr(); }

  // The instance, or null when there is none (not yet created, or being deleted).
  static T* PeekSingletonPtr() { return ourInstance; }

  // Forgets the instance, then deletes it; does nothing when there is none. The next
  // GetSingletonPtr() makes a new one.
  static void DeleteSingleton() { delete ReleaseSingleton(); }

 protected:
  CStaticSingleton() = default;
  ~CStaticSingleton() = default;

  // Forgets the instance, which belongs to the caller then; null when there is none.
  static T* ReleaseSingleton() { return std::exchange(ourInstance, nullptr); }

 private:
  static inline T* ourInstance = nullptr;
};

// A singleton that is used through its own type only and lives to the end of the process.
template <typename T>
class CSingleton : public CStaticSingleton<T> {};

}  // namespace vask
