#include "utils/xml/xmlelement.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace vask {

namespace {

struct SEntity {
  std::string_view code;
  char character;
};

// The first that fits counts. Files rely on it that what an ampersand's entity decodes to begins an
// entity again, but only one of the last two.
constexpr std::array<SEntity, 7> kEntities = {{{"&lt;", '<'},
                                               {"&gt;", '>'},
                                               {"&amp;apos;", '\''},
                                               {"&amp;quot;", '"'},
                                               {"&amp;", '&'},
                                               {"&apos;", '\''},
                                               {"&quot;", '"'}}};

// The entity that the text begins with; an ampersand alone stands for itself.
SEntity EntityAt(std::string_view text) {
  for (const SEntity& entity : kEntities) {
    if (text.starts_with(entity.code)) {
      return entity;
    }
  }
  return {text.substr(0, 1), text.front()};
}

std::string Decode(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t ampersand; (ampersand = text.find('&')) != std::string_view::npos;) {
    decoded.append(text.substr(0, ampersand));
    text.remove_prefix(ampersand);
    const SEntity entity = EntityAt(text);
    decoded += entity.character;
    text.remove_prefix(entity.code.size());
  }
  decoded.append(text);
  return decoded;
}

// Where the attribute of that name is, or would be.
template <typename Attributes>
auto FindPlace(Attributes& attributes, const std::string& name) {
  return std::lower_bound(attributes.begin(), attributes.end(), name,
                          [](const auto& one, const std::string& key) { return one.first < key; });
}

}  // namespace

CXmlElement::CXmlElement(std::string name) : myName(std::move(name)) {}

CXmlElement::~CXmlElement() {
  if (myChildren.empty()) {
    return;
  }
  std::vector<std::unique_ptr<CXmlElement>> doomed(std::move_iterator(myChildren.rbegin()),
                                                   std::move_iterator(myChildren.rend()));
  myChildren.clear();
  while (!doomed.empty()) {
    const std::unique_ptr<CXmlElement> element = std::move(doomed.back());
    doomed.pop_back();
    // The first child will be on top: memory is given back in the order in which it was taken.
    std::move(element->myChildren.rbegin(), element->myChildren.rend(), std::back_inserter(doomed));
    element->myChildren.clear();
  }
}

void CXmlElement::SetContent(const std::string& text) {
  if (text.find('&') == std::string::npos) {
    myContent = text;
  } else {
    myContent = Decode(text);
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
  const bool isLast = myAttributes.empty() || myAttributes.back().first < name;
  const auto place = isLast ? myAttributes.end() : FindPlace(myAttributes, name);
  if (place == myAttributes.end() || place->first != name) {
    myAttributes.emplace(place, name, std::move(value));
  }
}

bool CXmlElement::HasAttribute(const std::string& name) const {
  const auto place = FindPlace(myAttributes, name);
  return place != myAttributes.end() && place->first == name;
}

const CAnyContainer& CXmlElement::GetAttribute(const std::string& name) const {
  static const CAnyContainer& none = *new CAnyContainer;
  const auto place = FindPlace(myAttributes, name);
  return place == myAttributes.end() || place->first != name ? none : place->second;
}

}  // namespace vask
