#pragma once

#include "utils/xml/xmlhandlerinterface.h"

#include <istream>
#include <string>
#include <string_view>

namespace vask {

// Cuts a document into tags and text and reports them to a handler. The dialect is small: elements,
// attributes in double quotes, text; what begins with "!" is skipped. A "<" or ">" ends a text or a
// tag wherever it occurs; there is no quoting at that level. Broken input never fails, and every
// input takes time linear in its length.
class CXmlParser {
 public:
  // With `trim`, blanks around texts and tags are dropped.
  explicit CXmlParser(CXmlHandlerInterface& handler, bool trim = true)
      : myTrim(trim), myHandler(&handler) {}

  // Parses the file as one document. A missing file is an empty document.
  void ParseFile(const std::string& fileName);
  // Parses the rest of the stream as one document. Lines are joined without a separator.
  void ParseStream(std::istream& stream);

  // Goes on with a piece of the document; a tag or a text may run over several pieces.
  void Parse(std::string_view chunk);

 private:
  enum EState : int { kText = 0, kTag = 1 };

  void ParseLines(std::istream& stream);
  void Finish(std::string& begun, std::string_view last,
              void (CXmlParser::*process)(std::string_view));
  void ProcessText(std::string_view text);
  void ProcessTag(std::string_view tag);
  void ReportElement(std::string_view tag, std::string& name);
  void TakeAttributes(std::string_view tag, std::string& left);

  bool myTrim;
  int myState = kText;
  CXmlHandlerInterface* myHandler;
  std::string myText;  // since the last tag, of earlier pieces
  std::string myTag;   // since the last "<", of earlier pieces
  CXmlHandlerInterface::Attributes myAttributes;
  std::string mySpare;  // memory for what is reported
};

}  // namespace vask
