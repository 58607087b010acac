#pragma once

#include "utils/rect.h"
#include "utils/xml/xmlelement.h"

#include <string>
#include <vector>

namespace vask {

// The serialisation context: an object reads itself from a tree of elements, or writes itself into
// one, through the same operation `Serialize(CXmlContext&)`.
//
//     void CThing::Serialize(CXmlContext& xml) {
//       xml.Value("Size", mySize);     // reads or writes, by the mode
//       if (xml.BeginNode("Child")) {  // reading: goes down; false when missing
//         myChild.Serialize(xml);
//         xml.EndNode("Child");        // comes back just after it
//       }
//     }
//
// Children are expected in document order; asking out of order works and logs one warning.
class CXmlContext {
 public:
  enum EMode : int { kReading = 0, kWriting = 1 };

  // Starts at the root (not owned; null makes every operation a no-op). Warnings are reported in
  // reading mode.
  CXmlContext(CXmlElement* root, EMode mode, std::string fileName = {});

  // As given; for messages, and for a context that is begun on an element below this one.
  const std::string& GetFileName() const { return myFileName; }

  bool IsReading() const { return myMode == kReading; }
  bool IsWriting() const { return myMode == kWriting; }

  // Whether the current element has a child of that name, read already or not. It cannot end a loop
  // over children of one name: use ForEachChild of GetCurrent() for that.
  bool HasChild(const std::string& name) const;
  // The next child of that name, or null; moves the reading position just after it.
  CXmlElement* GetChild(const std::string& name);

  // Writing: appends a child element and makes it current. Reading: goes down into the next child
  // of that name. False, changing nothing, when there is none.
  bool BeginNode(const std::string& name);
  // Goes back to the parent; in reading mode the position is just after the element that ended.
  void EndNode(const std::string& name);

  // The current element, whose children and attributes may be walked directly; null for no
  // document.
  CXmlElement* GetCurrent() const { return myCurrent; }

  // Reading: takes the child's content; returns false, leaving the value as it is, when there is
  // none. Writing: appends a child element with the value as content and returns true.
  bool Value(const std::string& name, bool& value);
  bool Value(const std::string& name, int& value);
  bool Value(const std::string& name, unsigned& value);
  bool Value(const std::string& name, float& value);
  bool Value(const std::string& name, std::string& value);
  // A rectangle is an element with the attributes "x", "y", "w" and "h", each taken only if
  // present.
  bool Value(const std::string& name, CRect<int>& value);

  // As Value, but in reading mode checks HasChild first, so that a missing tail logs nothing.
  template <typename T>
  bool OptionalValue(const std::string& name, T& value) {
    return (IsWriting() || HasChild(name)) && Value(name, value);
  }

  // Sets an attribute of the current element (writing).
  void SetAttribute(const std::string& name, CAnyContainer value);

 private:
  template <typename T>
  bool StreamValue(const std::string& name, T& value);
  CXmlElement* ValueElement(const std::string& name);
  bool IsNext(const std::string& name) const;
  void Warn(const std::string& text) const;

  std::string myFileName;
  int myLine = 0;
  bool myWarnings;
  int myMode;
  CXmlElement* myRoot;
  CXmlElement* myCurrent;
  int myChildIndex = 0;
  std::vector<int> myOuterIndexes;  // where reading goes on in each element around the current one
};

// Reads and writes the "x", "y", "w" and "h" of a rectangle as attributes of the element (not
// null). What is missing, or is no number, keeps its value.
void ReadRect(const CXmlElement& element, CRect<int>& rect);
void WriteRect(CXmlElement& element, const CRect<int>& rect);

}  // namespace vask
