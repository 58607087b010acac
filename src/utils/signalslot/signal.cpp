#include "utils/signalslot/signal.h"

#include "utils/log/log.h"
#include "utils/signalslot/ccssobject.h"
#include "utils/signalslot/cssslotfactory.h"
#include "utils/xml/xmlcontext.h"

#include <algorithm>
#include <string>

namespace vask::css {

namespace {

constexpr const char* kSlotElement = "Slot";
constexpr const char* kTargetAttribute = "target";
constexpr const char* kFunctionAttribute = "function";

}  // namespace

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

std::size_t CSignal::GetConnectionCount() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(myConnections->list, [](const auto& c) { return !c->IsDropped(); }));
}

void CSignal::SConnections::FreeDropped() {
  if (emissions == 0) {
    std::erase_if(list, [](const auto& c) { return c->IsDropped(); });
  }
}

void CSignal::Serialize(CXmlContext& xml) {
  if (xml.IsWriting()) {
    Write(xml);
  } else if (xml.GetCurrent() != nullptr) {
    Read(xml);
  }
}

void CSignal::Read(const CXmlContext& xml) {
  const CXmlElement& node = *xml.GetCurrent();
  for (int i = 0; i < node.GetChildCount(); ++i) {
    const CXmlElement& element = *node.GetChild(i);
    if (element.GetName() != kSlotElement) {
      continue;
    }
    const std::string target = element.GetAttribute(kTargetAttribute).ToString();
    const std::string function = element.GetAttribute(kFunctionAttribute).ToString();
    ICCSSObject* object = ICCSSObject::Find(target);
    auto connection = object != nullptr ? object->Connect(function) : nullptr;
    if (connection == nullptr) {
      CLog::GetSingletonPtr()->Warning() << "[WARNING] Could not connect the slot \"" << function
                                         << "\" of \"" << target << "\"\n";
    }
    Connect(std::move(connection));
  }
}

void CSignal::Write(CXmlContext& xml) const {
  for (const auto& connection : myConnections->list) {
    const ICCSSObject* object = ICCSSObject::Find(connection->GetTarget());
    const auto slot = CCSSSlotFactory::GetSingletonPtr()->FindName(connection->GetSlot());
    if (object == nullptr || !slot || !connection->IsSaved()) {
      continue;
    }
    xml.BeginNode(kSlotElement);
    xml.SetAttribute(kTargetAttribute, object->GetName());
    xml.SetAttribute(kFunctionAttribute, slot->slotName);
    xml.EndNode(kSlotElement);
  }
}

}  // namespace vask::css
