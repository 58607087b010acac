#pragma once

#include <cstddef>
#include <vector>

namespace vask::css {

class CSignalConnection;

// The base of an object whose member functions are connected to signals: it knows the connections
// that point at the object and takes them back when the object dies, so that no signal calls the
// dead. Bases die last: a class whose destructor may set signals off calls DropConnections() first
// of all in it, since its own part is gone by then.
class CSignalTarget {
 public:
  CSignalTarget(const CSignalTarget&) = delete;
  CSignalTarget& operator=(const CSignalTarget&) = delete;

  // Takes all connections to this object back.
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
