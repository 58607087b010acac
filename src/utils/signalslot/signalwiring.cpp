#include "utils/signalslot/signalwiring.h"

#include "utils/log/log.h"
#include "utils/signalslot/ccssobject.h"
#include "utils/signalslot/cssslotfactory.h"
#include "utils/signalslot/signal.h"
#include "utils/xml/xmlcontext.h"

#include <string>
#include <utility>

namespace vask::css {

namespace {

constexpr const char* kSlotElement = "Slot";
constexpr const char* kTargetAttribute = "target";
constexpr const char* kFunctionAttribute = "function";

}  // namespace

void CSignalWiring::Serialize(CXmlContext& xml) {
  if (xml.IsWriting()) {
    Write(xml);
  } else if (xml.GetCurrent() != nullptr) {
    Read(xml);
  }
}

void CSignalWiring::Read(const CXmlContext& xml) {
  xml.GetCurrent()->ForEachChild(kSlotElement, [this](const CXmlElement& element) {
    const std::string target = element.GetAttribute(kTargetAttribute).ToString();
    const std::string function = element.GetAttribute(kFunctionAttribute).ToString();
    ICCSSObject* object = ICCSSObject::Find(target);
    auto connection = object != nullptr ? object->Connect(function) : nullptr;
    if (connection == nullptr) {
      Log().Warning() << "[WARNING] Could not connect the slot \"" << function << "\" of \""
                      << target << "\"\n";
    }
    mySignal.Connect(std::move(connection));
  });
}

void CSignalWiring::Write(CXmlContext& xml) const {
  for (const CSignalConnection* connection : mySignal.GetConnections()) {
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
