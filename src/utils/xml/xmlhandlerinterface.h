#pragma once

#include <map>
#include <string>

namespace vask {

// Receives what a parser finds in a document, in document order.
class CXmlHandlerInterface {
 public:
  using Attributes = std::map<std::string, std::string>;

  virtual ~CXmlHandlerInterface() = default;
  virtual void StartDocument() {}
  virtual void EndDocument() {}
  virtual void Characters(const std::string& /*text*/) {}
  virtual void StartElement(const std::string& /*name*/, const Attributes& /*attrs*/) {}
  virtual void EndElement(const std::string& /*name*/) {}
};

}  // namespace vask
