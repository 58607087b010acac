#include "utils/signalslot/signaltarget.h"

#include "utils/signalslot/signalconnection.h"

namespace vask::css {

// Each connection leaves the list as it is dropped.
void CSignalTarget::DropConnections() {
  while (!myConnections.empty()) {
    myConnections.back()->Drop();
  }
}

}  // namespace vask::css
