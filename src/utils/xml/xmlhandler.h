#pragma once

#include "utils/xml/xmlelement.h"
#include "utils/xml/xmlhandlerinterface.h"

#include <memory>
#include <string>

namespace vask {

// Builds the tree of a document. The first top-level element is the root; what follows it is
// dropped.
class CXmlHandler : public CXmlHandlerInterface {
 public:
  void StartDocument() override;
  void Characters(const std::string& text) override;
  void StartElement(const std::string& name, const Attributes& attrs) override;
  // Goes up, whatever the name is.
  void EndElement(const std::string& name) override;

  // The root, or null when the document held no element; owned by the handler.
  virtual CXmlElement* GetRootElement() { return myRoot.get(); }
  // Hands the tree over to the caller.
  std::unique_ptr<CXmlElement> TakeRootElement();

 private:
  std::unique_ptr<CXmlElement> myRoot;
  CXmlElement* myCurrent = nullptr;
};

}  // namespace vask
