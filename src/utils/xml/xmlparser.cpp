#include "utils/xml/xmlparser.h"

#include "utils/inputfile.h"
#include "utils/trim.h"

#include <algorithm>
#include <utility>

namespace vask {

namespace {

// Without the line ends at the back; one character always stays.
std::string_view TrimLineEnds(std::string_view text) {
  while (text.size() > 1 && (text.back() == '\n' || text.back() == '\r')) {
    text.remove_suffix(1);
  }
  return text;
}

// A value reaches to its closing quote, or without quotes to the next blank.
std::size_t FindValueEnd(std::string_view text) {
  const std::size_t stop = text.find_first_of(" \t\"");
  if (stop == std::string_view::npos || text[stop] != '"') {
    return std::min(stop, text.size());
  }
  const std::size_t close = text.find('"', stop + 1);
  return close == std::string_view::npos ? text.size() : close + 1;
}

// Drops the first and the last character: quotes, as a rule.
std::string_view Unquote(std::string_view value) {
  value = TrimBack(value);
  return value.size() < 2 ? std::string_view() : value.substr(1, value.size() - 2);
}

bool StartsWithBlankOrSlash(std::string_view text) {
  return text.front() == '/' || kBlanks.find(text.front()) != std::string_view::npos;
}

}  // namespace

void CXmlParser::ParseFile(const std::string& fileName) {
  std::ifstream file = OpenInputFile(fileName);
  ParseStream(file);
}

void CXmlParser::ParseStream(std::istream& stream) {
  myHandler->StartDocument();
  ParseLines(stream);
  myHandler->EndDocument();
}

void CXmlParser::ParseLines(std::istream& stream) {
  std::string line;
  while (std::getline(stream, line)) {
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
    }
    Parse(line);
  }
}

void CXmlParser::Parse(std::string_view chunk) {
  for (;;) {
    if (myTrim) {
      chunk = Trim(chunk);
    }
    std::string& collected = myState == kText ? myText : myTag;
    const std::size_t end = chunk.find(myState == kText ? '<' : '>');
    collected.append(chunk.substr(0, end));
    if (end == std::string_view::npos) {
      return;
    }
    chunk.remove_prefix(end + 1);
    if (std::exchange(myState, myState == kText ? kTag : kText) == kText) {
      ProcessText();
    } else {
      ProcessTag();
    }
  }
}

void CXmlParser::ProcessText() {
  if (myText.empty()) {
    return;
  }
  const std::string text = std::exchange(myText, {});
  myHandler->Characters(myTrim ? std::string(Trim(TrimLineEnds(text))) : text);
}

void CXmlParser::ProcessTag() {
  const std::string collected = std::exchange(myTag, {});
  const std::string_view tag = myTrim ? TrimLineEnds(Trim(collected)) : collected;
  if (tag.empty() || tag.front() == '!') {
    return;
  }
  if (tag.front() == '/') {
    myHandler->EndElement(std::string(tag.substr(1)));
    return;
  }
  const bool hasAttributes = tag.find('=') != std::string_view::npos;
  std::string name = hasAttributes ? TakeAttributes(tag) : std::string(tag);
  const bool isClosed = !name.empty() && name.back() == '/';
  if (isClosed) {
    name.pop_back();
    name = Trim(name);
  }
  const CXmlHandlerInterface::Attributes attributes = std::exchange(myAttributes, {});
  myHandler->StartElement(name, attributes);
  if (isClosed) {
    myHandler->EndElement(name);
  }
}

// Moves `name=value` pairs out of the tag text and returns what is left: the element name, stray
// words, and a final "/". The rule is "split at the first '=', join the text before the name and
// the text after the value, start again"; `left` is the front of that text, free of "=", so that
// nothing is scanned twice.
std::string CXmlParser::TakeAttributes(std::string_view tag) {
  std::string left;
  tag = Trim(tag);
  for (std::size_t equals; (equals = tag.find('=')) != std::string_view::npos;) {
    left.append(tag.substr(0, equals));
    left.resize(TrimBack(left).size());
    const std::size_t blank = left.find_last_of(kBlanks);
    const std::string name = blank == std::string::npos ? left : left.substr(blank + 1);

    tag = TrimFront(tag.substr(equals + 1));
    const std::size_t valueEnd = FindValueEnd(tag);
    myAttributes.emplace(name, Unquote(tag.substr(0, valueEnd)));
    tag.remove_prefix(valueEnd);

    if (blank == std::string::npos) {
      // There is no element name before the attribute. The rest is dropped, except for what keeps
      // the tags balanced.
      return tag.empty() || tag.back() != '/' ? "" : "/";
    }
    left.resize(blank);
    if (!tag.empty() && !StartsWithBlankOrSlash(tag)) {
      left += ' ';
    }
  }
  left.append(tag);
  return std::string(Trim(left));
}

}  // namespace vask
