// Any bytes are a document: reading, walking and writing must neither crash nor hang, the events
// must be those of a well-behaved parser, and what is written must be read as the same.

#include "utils/xml/xml.h"

#include "fuzz.h"
#include "utils/xml/xmlparser.h"

#include <algorithm>
#include <cctype>

namespace {

using vask::CXmlElement;
using vask::fuzz::Require;

// Checks what holds for the events of every document.
class CEventCheck : public vask::CXmlHandlerInterface {
 public:
  void StartElement(const std::string& name, const Attributes& attrs) override {
    Require(name.find('>') == std::string::npos && name.find('=') == std::string::npos);
    for (const auto& [key, value] : attrs) {
      Require(key.find_first_of("= \t") == std::string::npos);
      Require(value.find('>') == std::string::npos);
    }
  }
  void Characters(const std::string& text) override {
    Require(text.find('<') == std::string::npos);
  }
};

std::string Written(const CXmlElement& root) {
  std::ostringstream stream;
  vask::WriteXml(root, stream);
  return stream.str();
}

// Whether a document can hold the name: a broken one may have made it out of any bytes.
bool IsPlain(const std::string& name) {
  return !name.empty() && std::ranges::all_of(name, [](unsigned char character) {
    return std::isalnum(character) != 0 || character == '_' || character == ':';
  });
}

// Whether a document can hold it all: nothing is encoded when it is written, and a line ends with
// both halves of its end.
bool IsPlain(const CXmlElement& element) {
  bool holds =
      IsPlain(element.GetName()) && element.GetContent().find_first_of("<&\r") == std::string::npos;
  for (const auto& [name, value] : element.GetAttributes()) {
    holds = holds && IsPlain(name) && value.ToString().find('"') == std::string::npos;
  }
  for (int i = 0; holds && i < element.GetChildCount(); ++i) {
    holds = IsPlain(*element.GetChild(i));
  }
  return holds;
}

// Goes down along the first children and comes back up, as a loading object does.
void WalkThrough(CXmlElement& root) {
  vask::CXmlContext xml(&root, vask::CXmlContext::kReading);
  while (const CXmlElement* child = xml.GetCurrent()->GetChild(0)) {
    vask::CRect<int> rect;
    int number = 0;
    xml.OptionalValue(child->GetName(), rect);
    xml.OptionalValue(child->GetName() + "?", number);
    if (xml.GetCurrent()->GetChildCount() < 2 ||
        !xml.BeginNode(xml.GetCurrent()->GetChild(1)->GetName())) {
      break;
    }
  }
  while (xml.GetCurrent() != nullptr) {
    xml.EndNode(xml.GetCurrent()->GetName());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string document = vask::fuzz::ToText(data, size);
  CEventCheck check;
  for (const bool trim : {true, false}) {
    std::istringstream stream(document);
    vask::CXmlParser(check, trim).ParseStream(stream);
  }
  std::istringstream stream(document);
  if (const auto root = vask::ReadXml(stream)) {
    WalkThrough(*root);
    const std::string once = Written(*root);
    std::istringstream again(once);
    const auto same = vask::ReadXml(again);
    Require(same != nullptr || root->GetName().empty() || root->GetName()[0] == '!');
    Require(!IsPlain(*root) || Written(*same) == once);
  }
  return 0;
}
