#pragma once

#include "designpatterns/singleton.h"

#include <map>
#include <string>

namespace vask {

// The task libraries that "taskload" can load. The files of the tasks enter themselves here, so
// that the kernel knows none of them.
class CTaskLibraries : public CStaticSingleton<CTaskLibraries> {
 public:
  // Registers the library's task types with the task factory.
  using Loader = void (*)();

  // First registration of a name wins.
  void Add(const std::string& library, Loader loader) { myLoaders.try_emplace(library, loader); }

  // Runs the library's loader; an unknown name does nothing.
  void Load(const std::string& library) const {
    const auto found = myLoaders.find(library);
    if (found != myLoaders.end()) {
      found->second();
    }
  }

 private:
  std::map<std::string, Loader> myLoaders;
};

// Enters a task library from a static initialiser:
//
//     const CTaskLibraryRegistrar theLibraryRegistrar("samples", &RegisterSampleTasks);
class CTaskLibraryRegistrar {
 public:
  CTaskLibraryRegistrar(const char* library, CTaskLibraries::Loader loader) {
    CTaskLibraries::GetSingletonPtr()->Add(library, loader);
  }
};

}  // namespace vask
