#include "utils/xml/xmlcontext.h"

#include "utils/containers/varref.h"
#include "utils/log/log.h"

#include <memory>
#include <utility>

namespace vask {

namespace {

// The index of the first child of that name; the child count when there is none.
int FindChild(const CXmlElement& element, const std::string& name) {
  int index = 0;
  while (index < element.GetChildCount() && element.GetChild(index)->GetName() != name) {
    ++index;
  }
  return index;
}

int IndexOf(const CXmlElement& parent, const CXmlElement* child) {
  int index = 0;
  while (index < parent.GetChildCount() && parent.GetChild(index) != child) {
    ++index;
  }
  return index;
}

}  // namespace

CXmlContext::CXmlContext(CXmlElement* root, EMode mode, std::string fileName)
    : myFileName(std::move(fileName)),
      myWarnings(mode == kReading),
      myMode(mode),
      myRoot(root),
      myCurrent(root) {}

bool CXmlContext::HasChild(const std::string& name) const {
  if (myCurrent == nullptr) {
    return false;
  }
  return IsNext(name) || FindChild(*myCurrent, name) < myCurrent->GetChildCount();
}

CXmlElement* CXmlContext::GetChild(const std::string& name) {
  if (myCurrent == nullptr) {
    return nullptr;
  }
  if (myChildIndex >= myCurrent->GetChildCount()) {
    Warn("Xml warning, ain't no childs left in the current node: " + myCurrent->GetName());
  }
  if (!IsNext(name)) {
    const int found = FindChild(*myCurrent, name);
    if (found == myCurrent->GetChildCount()) {
      return nullptr;
    }
    Warn("Xml warning a child node wasn't in the place it should be, order fucked up in node: " +
         myCurrent->GetName());
    myChildIndex = found;
  }
  return myCurrent->GetChild(myChildIndex++);
}

bool CXmlContext::BeginNode(const std::string& name) {
  if (myCurrent == nullptr) {
    return false;
  }
  CXmlElement* node =
      IsWriting() ? myCurrent->AddChild(std::make_unique<CXmlElement>(name)) : GetChild(name);
  if (node == nullptr) {
    return false;
  }
  myOuterIndexes.push_back(myChildIndex);
  myCurrent = node;
  myChildIndex = 0;
  return true;
}

void CXmlContext::EndNode(const std::string& name) {
  if (myCurrent == nullptr) {
    return;
  }
  if (myCurrent->GetName() != name) {
    Warn("Xml warning, trying to end a different node: " + name +
         " should end: " + myCurrent->GetName());
  }
  const CXmlElement* ended = std::exchange(myCurrent, myCurrent->GetParent());
  if (!myOuterIndexes.empty()) {
    myChildIndex = myOuterIndexes.back();
    myOuterIndexes.pop_back();
  } else if (myCurrent != nullptr) {
    // The context began below this element, which has not been read through it yet.
    myChildIndex = IndexOf(*myCurrent, ended) + 1;
  }
}

bool CXmlContext::Value(const std::string& name, bool& value) { return StreamValue(name, value); }
bool CXmlContext::Value(const std::string& name, int& value) { return StreamValue(name, value); }
bool CXmlContext::Value(const std::string& name, unsigned& value) {
  return StreamValue(name, value);
}
bool CXmlContext::Value(const std::string& name, float& value) { return StreamValue(name, value); }
bool CXmlContext::Value(const std::string& name, std::string& value) {
  return StreamValue(name, value);
}

bool CXmlContext::Value(const std::string& name, CRect<int>& value) {
  CXmlElement* element = ValueElement(name);
  if (element == nullptr) {
    return false;
  }
  if (IsWriting()) {
    WriteRect(*element, value);
  } else {
    ReadRect(*element, value);
  }
  return true;
}

void CXmlContext::SetAttribute(const std::string& name, CAnyContainer value) {
  if (myCurrent != nullptr) {
    myCurrent->SetAttribute(name, std::move(value));
  }
}

template <typename T>
bool CXmlContext::StreamValue(const std::string& name, T& value) {
  CXmlElement* element = ValueElement(name);
  if (element == nullptr) {
    return false;
  }
  if (IsWriting()) {
    element->SetContent(WriteToText(value));
  } else {
    ReadFromText(element->GetContent(), value);
  }
  return true;
}

// The element of a value: a new one when writing, the next of that name when reading.
CXmlElement* CXmlContext::ValueElement(const std::string& name) {
  if (IsWriting() && myCurrent != nullptr) {
    return myCurrent->AddChild(std::make_unique<CXmlElement>(name));
  }
  return GetChild(name);
}

bool CXmlContext::IsNext(const std::string& name) const {
  const CXmlElement* next = myCurrent->GetChild(myChildIndex);
  return next != nullptr && next->GetName() == name;
}

void CXmlContext::Warn(const std::string& text) const {
  if (myWarnings) {
    *CLog::GetSingletonPtr() << text << " in file: " << myFileName << " at line " << myLine << "\n";
  }
}

void ReadRect(const CXmlElement& element, CRect<int>& rect) {
  const auto read = [&element](const char* name, int& value) {
    ReadFromText(element.GetAttribute(name).ToString(), value);
  };
  read("x", rect.x);
  read("y", rect.y);
  read("w", rect.w);
  read("h", rect.h);
}

void WriteRect(CXmlElement& element, const CRect<int>& rect) {
  element.SetAttribute("x", rect.x);
  element.SetAttribute("y", rect.y);
  element.SetAttribute("w", rect.w);
  element.SetAttribute("h", rect.h);
}

}  // namespace vask
