#include "utils/xml/xmlelement.h"

#include <array>
#include <string_view>
#include <utility>

namespace vask {

namespace {

struct SEntity {
  std::string_view code;
  char character;
};

// Decoded one after the other: what the ampersand's entity decodes to is decoded again by the
// entities after it. Files rely on the order.
constexpr std::array<SEntity, 5> kEntities = {
    {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&apos;", '\''}, {"&quot;", '"'}}};

std::string ReplaceAll(const std::string& text, const SEntity& entity) {
  std::string result;
  std::size_t begin = 0;
  for (std::size_t found; (found = text.find(entity.code, begin)) != std::string::npos;) {
    result.append(text, begin, found - begin);
    result += entity.character;
    begin = found + entity.code.size();
  }
  return result.append(text, begin);
}

}  // namespace

CXmlElement::CXmlElement(std::string name) : myName(std::move(name)) {}

CXmlElement::~CXmlElement() {
  std::vector<std::unique_ptr<CXmlElement>> doomed = std::move(myChildren);
  while (!doomed.empty()) {
    const std::unique_ptr<CXmlElement> element = std::move(doomed.back());
    doomed.pop_back();
    for (std::unique_ptr<CXmlElement>& child : element->myChildren) {
      doomed.push_back(std::move(child));
    }
    element->myChildren.clear();
  }
}

void CXmlElement::SetContent(const std::string& text) {
  myContent = text;
  if (text.find('&') == std::string::npos) {
    return;
  }
  for (const SEntity& entity : kEntities) {
    myContent = ReplaceAll(myContent, entity);
  }
}

CXmlElement* CXmlElement::AddChild(std::unique_ptr<CXmlElement> child) {
  if (child == nullptr) {
    return nullptr;
  }
  child->SetParent(this);
  myChildren.push_back(std::move(child));
  return myChildren.back().get();
}

CXmlElement* CXmlElement::GetChild(int index) const {
  if (index < 0 || index >= GetChildCount()) {
    return nullptr;
  }
  return myChildren[static_cast<std::size_t>(index)].get();
}

void CXmlElement::SetAttribute(const std::string& name, CAnyContainer value) {
  myAttributes.insert({name, std::move(value)});
}

const CAnyContainer& CXmlElement::GetAttribute(const std::string& name) const {
  static const CAnyContainer& none = *new CAnyContainer;
  const auto found = myAttributes.find(name);
  return found == myAttributes.end() ? none : found->second;
}

}  // namespace vask
