#include "utils/xml/xmlhandler.h"

#include <utility>

namespace vask {

void CXmlHandler::StartDocument() {
  myRoot.reset();
  myCurrent = nullptr;
}

void CXmlHandler::Characters(const std::string& text) {
  if (myCurrent != nullptr) {
    myCurrent->SetContent(text);
  }
}

void CXmlHandler::StartElement(const std::string& name, const Attributes& attrs) {
  if (myRoot != nullptr && myCurrent == nullptr) {
    return;
  }
  auto element = std::make_unique<CXmlElement>(name);
  element->ReserveAttributes(attrs.size());
  for (const auto& [key, value] : attrs) {
    element->SetAttribute(key, value);
  }
  if (myRoot == nullptr) {
    myRoot = std::move(element);
    myCurrent = myRoot.get();
  } else {
    myCurrent = myCurrent->AddChild(std::move(element));
  }
}

void CXmlHandler::EndElement(const std::string& /*name*/) {
  if (myCurrent != nullptr) {
    myCurrent = myCurrent->GetParent();
  }
}

std::unique_ptr<CXmlElement> CXmlHandler::TakeRootElement() {
  myCurrent = nullptr;
  return std::move(myRoot);
}

}  // namespace vask
