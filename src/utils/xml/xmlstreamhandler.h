#pragma once

#include "utils/xml/xmlelement.h"
#include "utils/xml/xmlhandlerinterface.h"

#include <ostream>
#include <string>

namespace vask {

// Writes a document as text, each tag and each content on an indented line of its own. Nothing is
// encoded: a "<" in a content comes out as it is.
class CXmlStreamHandler : public CXmlHandlerInterface {
 public:
  // Writes nothing for an empty text.
  virtual void WriteText(const std::string& text, std::ostream& stream);
  virtual void WriteStartElement(const std::string& name, const CXmlElement::Attributes& attrs,
                                 std::ostream& stream);
  virtual void WriteEndElement(const std::string& name, std::ostream& stream);

 private:
  void WriteLine(const std::string& text, std::ostream& stream) const;

  int myDepth = 0;
};

}  // namespace vask
