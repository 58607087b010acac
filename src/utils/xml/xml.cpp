#include "utils/xml/xml.h"

#include "utils/outputfile.h"
#include "utils/xml/xmlhandler.h"
#include "utils/xml/xmlparser.h"
#include "utils/xml/xmlstreamhandler.h"

#include <istream>
#include <ostream>
#include <vector>

namespace vask {

std::unique_ptr<CXmlElement> ReadXmlFile(const std::string& fileName) {
  CXmlHandler handler;
  CXmlParser(handler).ParseFile(fileName);
  return handler.TakeRootElement();
}

std::unique_ptr<CXmlElement> ReadXml(std::istream& stream) {
  CXmlHandler handler;
  CXmlParser(handler).ParseStream(stream);
  return handler.TakeRootElement();
}

// Walks with a stack of its own: a deep document must not exhaust the program's.
void WriteXml(const CXmlElement& root, std::ostream& stream) {
  struct SOpenElement {
    const CXmlElement* element;
    int nextChild;
  };
  CXmlStreamHandler writer;
  std::vector<SOpenElement> open;
  const auto begin = [&](const CXmlElement& element) {
    writer.WriteStartElement(element.GetName(), element.GetAttributes(), stream);
    writer.WriteText(element.GetContent(), stream);
    open.push_back({&element, 0});
  };
  begin(root);
  while (!open.empty()) {
    const CXmlElement* element = open.back().element;
    if (const CXmlElement* child = element->GetChild(open.back().nextChild++)) {
      begin(*child);
    } else {
      writer.WriteEndElement(element->GetName(), stream);
      open.pop_back();
    }
  }
}

bool WriteXmlFile(const CXmlElement& root, const std::string& fileName) {
  std::ofstream file = OpenOutputFile(fileName);
  if (!file) {
    return false;
  }
  WriteXml(root, file);
  file.close();
  return file.good();
}

}  // namespace vask
