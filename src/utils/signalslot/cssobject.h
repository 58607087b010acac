#pragma once

#include "utils/signalslot/ccssobject.h"
#include "utils/signalslot/ssobject.h"

#include <memory>
#include <string>
#include <utility>

namespace vask::css {

// The base of a class T that publishes slots. It looks them up in T's table (CSSObject<T>); T
// itself gives each object its name.
//
//     class CLamp : public css::CCSSObject<CLamp> {
//      public:
//       std::string GetName() const override { return myName; }
//       void Toggle();
template <typename T>
class CCSSObject : public ICCSSObject {
 public:
  std::unique_ptr<CSignalConnection> Connect(const std::string& slotName) override {
    const CGenericEventBase* prototype = CSSObject<T>::GetSingletonPtr()->FindSlot(slotName);
    if (prototype == nullptr) {
      return nullptr;
    }
    std::unique_ptr<CGenericEventBase> slot = prototype->Clone();
    slot->SetTarget(static_cast<T*>(this));
    return std::make_unique<CSignalConnection>(std::move(slot), this, CSSObject<T>::IsClassSaved());
  }
  bool HasSlot(const std::string& slotName) const override {
    return CSSObject<T>::GetSingletonPtr()->FindSlot(slotName) != nullptr;
  }
  std::string GetClassName() const override {
    return CSSObject<T>::GetSingletonPtr()->GetClassName();
  }
};

}  // namespace vask::css
