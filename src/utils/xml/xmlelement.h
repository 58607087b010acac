#pragma once

#include "utils/containers/container.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vask {

// One node of a document tree: a name, text content, attributes and child elements (owned).
class CXmlElement {
 public:
  // Sorted by name, each name once. Most elements have few, so they are in one block of memory.
  using Attributes = std::vector<std::pair<std::string, CAnyContainer>>;

  explicit CXmlElement(std::string name = {});
  // Frees the whole tree below without recursion, however deep it is.
  ~CXmlElement();
  CXmlElement(const CXmlElement&) = delete;
  CXmlElement& operator=(const CXmlElement&) = delete;

  const std::string& GetName() const { return myName; }
  void SetName(const std::string& name) { myName = name; }

  const std::string& GetContent() const { return myContent; }
  // Stores the text with its five entities decoded.
  void SetContent(const std::string& text);

  CXmlElement* GetParent() const { return myParent; }
  void SetParent(CXmlElement* parent) { myParent = parent; }

  // Appends the element, which this one owns from now on, and sets its parent. Returns it.
  CXmlElement* AddChild(std::unique_ptr<CXmlElement> child);
  int GetChildCount() const { return static_cast<int>(myChildren.size()); }
  // The child at an index from 0; null outside the range.
  CXmlElement* GetChild(int index) const;
  // Calls `visit(child)` for each child of that name, in document order. No child may be added
  // meanwhile.
  template <typename Visit>
  void ForEachChild(std::string_view name, Visit visit) const {
    for (const auto& child : myChildren) {
      if (child->GetName() == name) {
        visit(*child);
      }
    }
  }

  // Stores the value unless the name is present already: the first value wins.
  void SetAttribute(const std::string& name, CAnyContainer value);
  // Makes room for so many, for a caller who is about to set them.
  void ReserveAttributes(std::size_t count) { myAttributes.reserve(count); }
  bool HasAttribute(const std::string& name) const;
  // The stored value; an empty one when the name is not present.
  const CAnyContainer& GetAttribute(const std::string& name) const;
  const Attributes& GetAttributes() const { return myAttributes; }

 private:
  CXmlElement* myParent = nullptr;
  std::string myName;
  std::string myContent;
  std::vector<std::unique_ptr<CXmlElement>> myChildren;
  Attributes myAttributes;
};

}  // namespace vask
