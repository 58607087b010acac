#pragma once

#include "designpatterns/singleton.h"
#include "utils/signalslot/cssslotfactory.h"
#include "utils/signalslot/genericevent.h"

#include <map>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>

namespace vask::css {

// The slots that class T publishes, one table for the process. Filled by a static initialiser:
//
//     const auto& theSlots =
//         CSSObject<CLamp>::GetSingleton().SetClassName("lamp").Add("Toggle", &CLamp::Toggle);
template <typename T>
class CSSObject : public CStaticSingleton<CSSObject<T>> {
 public:
  // Comes before the slots, which are registered under it.
  CSSObject& SetClassName(const std::string& name) {
    myClassName = name;
    return *this;
  }
  // A member function of T, its own or inherited, with up to two parameters.
  template <typename Base, typename... A>
  CSSObject& Add(const std::string& slotName, void (Base::*function)(A...)) {
    void (T::*own)(A...) = function;
    auto prototype = MakeSlot(static_cast<T*>(nullptr), own);
    const std::type_info& type = prototype->GetType();
    const CGenericEventBase* registered =
        CCSSSlotFactory::GetSingletonPtr()->Register(myClassName, slotName, std::move(prototype));
    // Another class may have taken the name first; its slot would be called on a T.
    if (registered->GetType() == type) {
      mySlots.emplace(slotName, registered);
    }
    return *this;
  }
  // Whether connections that are made from now on are written when their signal is.
  CSSObject& SetSaved(bool isSaved) {
    myIsSaved = isSaved;
    return *this;
  }

  const std::string& GetClassName() const { return myClassName; }
  // The prototype that the slot factory holds under the class's name; null for an unknown slot.
  const CGenericEventBase* FindSlot(const std::string& slotName) const {
    const auto found = mySlots.find(slotName);
    return found == mySlots.end() ? nullptr : found->second;
  }

  // The setting of the class, also of one that publishes nothing.
  static bool IsClassSaved() {
    const CSSObject* table = CSSObject::PeekSingletonPtr();
    return table == nullptr || table->myIsSaved;
  }

 private:
  std::string myClassName;
  std::map<std::string, const CGenericEventBase*> mySlots;  // owned by the slot factory
  bool myIsSaved = true;
};

}  // namespace vask::css
