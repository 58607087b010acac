#pragma once

#include "utils/containers/autolist.h"
#include "utils/signalslot/signalconnection.h"
#include "utils/signalslot/signaltarget.h"

#include <memory>
#include <string>

namespace vask::css {

// An object that publishes slots under names, so that a file can wire signals to it. One list holds
// all live ones.
class ICCSSObject : public CAutoList<ICCSSObject>, public CSignalTarget {
 public:
  virtual ~ICCSSObject() = default;
  // A new connection to the slot of that name, for CSignal::Connect; null for an unknown name.
  virtual std::unique_ptr<CSignalConnection> Connect(const std::string& slotName) = 0;
  virtual bool HasSlot(const std::string& slotName) const = 0;
  // The name under which the class registered its slots.
  virtual std::string GetClassName() const = 0;
  // The object's own name.
  virtual std::string GetName() const = 0;

  // The oldest live object of that name; null when there is none.
  static ICCSSObject* Find(const std::string& name);
  // The live object that is this target; null when the target publishes nothing.
  static const ICCSSObject* Find(const CSignalTarget* target);
};

}  // namespace vask::css
