#pragma once

#include "utils/xml/xmlcontext.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace vask {

// The root element of the file's tree; null when the file is missing or holds no element. Reports
// nothing.
std::unique_ptr<CXmlElement> ReadXmlFile(const std::string& fileName);

// The same from a stream, and onto one.
std::unique_ptr<CXmlElement> ReadXml(std::istream& stream);
void WriteXml(const CXmlElement& root, std::ostream& stream);

// Writes the tree as indented text, discarding old content; false when the file cannot be written.
bool WriteXmlFile(const CXmlElement& root, const std::string& fileName);

// Lets the object read itself from the file. Returns false, leaving the object as it is, when the
// file holds no document.
template <typename T>
bool LoadXml(T& object, const std::string& fileName) {
  const std::unique_ptr<CXmlElement> root = ReadXmlFile(fileName);
  if (root == nullptr) {
    return false;
  }
  CXmlContext context(root.get(), CXmlContext::kReading, fileName);
  object.Serialize(context);
  return true;
}

// Lets the object write itself below a document element of the given name, then writes the file.
template <typename T>
bool SaveXml(T& object, const std::string& fileName, const std::string& rootName = "Root") {
  CXmlElement root(rootName);
  CXmlContext context(&root, CXmlContext::kWriting, fileName);
  object.Serialize(context);
  return WriteXmlFile(root, fileName);
}

}  // namespace vask
