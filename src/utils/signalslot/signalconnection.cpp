#include "utils/signalslot/signalconnection.h"

#include "utils/signalslot/signal.h"
#include "utils/signalslot/signaltarget.h"

#include <utility>
#include <vector>

namespace vask::css {

CSignalConnection::CSignalConnection(std::unique_ptr<CGenericEventBase> slot, CSignalTarget* target,
                                     bool isSaved)
    : mySlot(std::move(slot)), myTarget(target), myIsSaved(isSaved) {
  if (myTarget != nullptr) {
    myTarget->myConnections.push_back(this);
  }
}

CSignalConnection::~CSignalConnection() { LeaveTarget(); }

// The signal comes last: it may free this connection.
void CSignalConnection::Drop() {
  myIsDropped = true;
  LeaveTarget();
  if (CSignal* signal = std::exchange(mySignal, nullptr)) {
    signal->myConnections->FreeDropped();
  }
}

void CSignalConnection::LeaveTarget() {
  if (CSignalTarget* target = std::exchange(myTarget, nullptr)) {
    std::erase(target->myConnections, this);
  }
}

}  // namespace vask::css
