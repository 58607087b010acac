#include "utils/signalslot/signal.h"

namespace vask::css {

// One run of an emission. While one is open nothing leaves the list, so its indexes hold.
class CSignal::CEmission {
 public:
  explicit CEmission(std::shared_ptr<SConnections> connections)
      : myConnections(std::move(connections)) {
    ++myConnections->emissions;
  }
  ~CEmission() {
    --myConnections->emissions;
    myConnections->FreeDropped();
  }
  CEmission(const CEmission&) = delete;
  CEmission& operator=(const CEmission&) = delete;

 private:
  std::shared_ptr<SConnections> myConnections;
};

CSignal::CSignal() : myConnections(std::make_shared<SConnections>()) {}

CSignal::~CSignal() {
  for (const auto& connection : myConnections->list) {
    connection->mySignal = nullptr;
    connection->Drop();
  }
}

void CSignal::Connect(std::unique_ptr<CSignalConnection> connection) {
  if (connection == nullptr || connection->IsDropped()) {
    return;
  }
  connection->mySignal = this;
  myConnections->list.push_back(std::move(connection));
}

template <typename CallSlot>
void CSignal::EmitWith(CallSlot call) {
  SConnections& connections = *myConnections;
  const CEmission emission(myConnections);
  const std::size_t count = connections.list.size();
  for (std::size_t i = 0; i < count; ++i) {
    const CSignalConnection& connection = *connections.list[i];
    if (!connection.IsDropped()) {
      call(connection.GetSlot());  // `this` may be gone from here on
    }
  }
}

void CSignal::Emit() {
  EmitWith([](CGenericEventBase& slot) { slot.Call(); });
}

void CSignal::Emit(const CAnyContainer& a) {
  EmitWith([&](CGenericEventBase& slot) { slot.Call(a); });
}

void CSignal::Emit(const CAnyContainer& a, const CAnyContainer& b) {
  EmitWith([&](CGenericEventBase& slot) { slot.Call(a, b); });
}

std::size_t CSignal::GetConnectionCount() const { return GetConnections().size(); }

std::vector<const CSignalConnection*> CSignal::GetConnections() const {
  std::vector<const CSignalConnection*> connections;
  for (const auto& connection : myConnections->list) {
    if (!connection->IsDropped()) {
      connections.push_back(connection.get());
    }
  }
  return connections;
}

void CSignal::SConnections::FreeDropped() {
  if (emissions == 0) {
    std::erase_if(list, [](const auto& c) { return c->IsDropped(); });
  }
}

}  // namespace vask::css
