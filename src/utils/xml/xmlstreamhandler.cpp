#include "utils/xml/xmlstreamhandler.h"

#include <algorithm>

namespace vask {

void CXmlStreamHandler::WriteText(const std::string& text, std::ostream& stream) {
  if (!text.empty()) {
    WriteLine(text, stream);
  }
}

void CXmlStreamHandler::WriteStartElement(const std::string& name,
                                          const CXmlElement::Attributes& attrs,
                                          std::ostream& stream) {
  std::string tag = "<" + name;
  if (!attrs.empty()) {
    tag += ' ';
  }
  for (const auto& [key, value] : attrs) {
    tag += key + "=\"" + value.ToString() + "\" ";
  }
  tag += '>';
  WriteLine(tag, stream);
  ++myDepth;
}

void CXmlStreamHandler::WriteEndElement(const std::string& name, std::ostream& stream) {
  --myDepth;
  WriteLine("</" + name + ">", stream);
}

void CXmlStreamHandler::WriteLine(const std::string& text, std::ostream& stream) const {
  const auto depth = static_cast<std::size_t>(std::max(myDepth, 0));
  stream << std::string(2 * depth, ' ') << text << '\n';
}

}  // namespace vask
