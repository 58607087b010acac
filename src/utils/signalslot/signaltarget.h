#pragma once

#include <cstddef>
#include <vector>

namespace vask::css {

class CSignalConnection;

// The base of an object whose member functions are connected to signals: it keeps the connections
// that point at the object and drops them when the object dies, so that no signal calls a dead
// object. Bases are destroyed last: a class whose destructor may emit signals calls
// DropConnections() first in it, since its own part is gone by then.
class CSignalTarget {
 public:
  CSignalTarget(const CSignalTarget&) = delete;
  CSignalTarget& operator=(const CSignalTarget&) = delete;

  // Drops all connections to this object.
  void DropConnections();
  std::size_t GetConnectionCount() const { return myConnections.size(); }

 protected:
  CSignalTarget() = default;
  ~CSignalTarget() { DropConnections(); }

 private:
  friend class CSignalConnection;

  std::vector<CSignalConnection*> myConnections;  // owned by their signals
};

}  // namespace vask::css
