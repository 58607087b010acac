#pragma once

#include "designpatterns/singleton.h"
#include "utils/signalslot/genericeventbase.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace vask::css {

// The slots of all classes that publish some, by the names of class and slot: prototypes, which
// have no target. Lives to the end of the process.
class CCSSSlotFactory : public CStaticSingleton<CCSSSlotFactory> {
 public:
  using Slots = std::map<std::string, std::unique_ptr<CGenericEventBase>>;
  struct SName {
    std::string className;
    std::string slotName;
  };

  // First registration of a name in a class wins. Returns the prototype that has the name.
  const CGenericEventBase* Register(const std::string& className, const std::string& slotName,
                                    std::unique_ptr<CGenericEventBase> prototype);
  // The name under which the slot's function is registered, whatever the slot's target.
  std::optional<SName> FindName(const CGenericEventBase& slot) const;

 private:
  std::map<std::string, Slots> myClasses;
};

}  // namespace vask::css
