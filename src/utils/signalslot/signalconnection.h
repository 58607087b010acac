#pragma once

#include "utils/signalslot/genericeventbase.h"

#include <memory>

namespace vask::css {

class CSignal;
class CSignalTarget;

// Ties one slot to one signal, and the slot's target to both. Made by CSignal::Connect or by an
// object that publishes its slots; lives in the signal from then on.
class CSignalConnection {
 public:
  // Enters the list of the target, which is null for a free function.
  CSignalConnection(std::unique_ptr<CGenericEventBase> slot, CSignalTarget* target, bool isSaved);
  ~CSignalConnection();
  CSignalConnection(const CSignalConnection&) = delete;
  CSignalConnection& operator=(const CSignalConnection&) = delete;

  CGenericEventBase& GetSlot() const { return *mySlot; }
  CSignalTarget* GetTarget() const { return myTarget; }
  bool IsSaved() const { return myIsSaved; }

  // Whether the connection has been dropped. It is not called any more, but its signal may still
  // hold it for the rest of an emission.
  bool IsDropped() const { return myIsDropped; }
  // Ends the connection; its signal frees it, at once or when it has finished emitting.
  void Drop();

 private:
  friend class CSignal;

  void LeaveTarget();

  std::unique_ptr<CGenericEventBase> mySlot;
  CSignal* mySignal = nullptr;  // null before it has come into one, and after it was dropped
  CSignalTarget* myTarget;
  bool myIsSaved;  // copied from the table of the target's class
  bool myIsDropped = false;
};

}  // namespace vask::css
