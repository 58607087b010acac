#include "utils/signalslot/cssslotfactory.h"

#include <utility>

namespace vask::css {

const CGenericEventBase* CCSSSlotFactory::Register(const std::string& className,
                                                   const std::string& slotName,
                                                   std::unique_ptr<CGenericEventBase> prototype) {
  return myClasses[className].try_emplace(slotName, std::move(prototype)).first->second.get();
}

// A prototype has no target, so none is the same as a slot in use; a copy with the slot's target
// may be.
std::optional<CCSSSlotFactory::SName> CCSSSlotFactory::FindName(
    const CGenericEventBase& slot) const {
  for (const auto& [className, slots] : myClasses) {
    for (const auto& [slotName, prototype] : slots) {
      if (prototype->GetType() != slot.GetType()) {
        continue;  // the copy's target would be taken for one of another class
      }
      const std::unique_ptr<CGenericEventBase> copy = prototype->Clone();
      copy->SetTarget(slot.GetTarget());
      if (copy->IsSame(slot)) {
        return SName{className, slotName};
      }
    }
  }
  return std::nullopt;
}

}  // namespace vask::css
