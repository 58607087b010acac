#pragma once

#include "designpatterns/singleton.h"

#include <map>
#include <memory>

namespace vask {

// A registry from a key to a maker of objects of one base class. The first registration of a key
// wins. Keys are ordered by their `<` (strings: byte-wise, so case counts).
template <typename Key, typename Base>
class CPlugFactory {
 public:
  class CGenericMaker {
   public:
    virtual ~CGenericMaker() = default;
    // A new object, owned by the caller.
    virtual Base* Create() = 0;
  };

  template <typename T>
  class CTemplateMaker : public CGenericMaker {
   public:
    Base* Create() override { return new T; }
  };

  // Enters a maker of default-constructed T under the key; does nothing when the key is taken.
  template <typename T>
  void Register(const Key& key) {
    myMakers.try_emplace(key, std::make_unique<CTemplateMaker<T>>());
  }

  // A new object of the type entered under the key, owned by the caller; null for an unknown key.
  Base* GetNew(const Key& key) const {
    const auto found = myMakers.find(key);
    return found == myMakers.end() ? nullptr : found->second->Create();
  }

 private:
  std::map<Key, std::unique_ptr<CGenericMaker>> myMakers;
};

// A plug factory that the whole process shares.
template <typename Key, typename Base>
class CSingletonFactory : public CPlugFactory<Key, Base>,
                          public CSingleton<CSingletonFactory<Key, Base>> {};

}  // namespace vask
