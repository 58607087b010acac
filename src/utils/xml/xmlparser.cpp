#include "utils/xml/xmlparser.h"

#include "utils/inputfile.h"
#include "utils/trim.h"

#include <algorithm>
#include <memory>
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

// Without the half of a line end that a file of another system leaves.
std::string_view WithoutReturn(std::string_view line) {
  return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

// A value reaches to its closing quote, or without quotes to the next blank.
std::size_t FindValueEnd(std::string_view text) {
  std::size_t stop = 0;
  while (stop < text.size() && text[stop] != '"' && !IsBlank(text[stop])) {
    ++stop;
  }
  if (stop == text.size() || text[stop] != '"') {
    return stop;
  }
  const std::size_t close = text.find('"', stop + 1);
  return close == std::string_view::npos ? text.size() : close + 1;
}

// Drops the first and the last character: quotes, as a rule.
std::string_view Unquote(std::string_view value) {
  return value.size() < 2 ? std::string_view() : value.substr(1, value.size() - 2);
}

void KeepTrimmed(std::string& text) {
  text.resize(TrimBack(text).size());
  text.erase(0, text.size() - TrimFront(text).size());
}

bool StartsWithBlankOrSlash(std::string_view text) {
  return text.front() == '/' || IsBlank(text.front());
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

// Reads in large pieces; only a line that runs over the end of one is copied.
void CXmlParser::ParseLines(std::istream& stream) {
  constexpr std::size_t kPieceSize = 16'384;
  const auto piece = std::make_unique<char[]>(kPieceSize);
  std::string begun;  // of a line whose end has not been read yet
  while (stream.read(piece.get(), kPieceSize) || stream.gcount() > 0) {
    std::string_view rest(piece.get(), static_cast<std::size_t>(stream.gcount()));
    for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos;) {
      if (begun.empty()) {
        Parse(WithoutReturn(rest.substr(0, end)));
      } else {
        Parse(WithoutReturn(begun.append(rest.substr(0, end))));
        begun.clear();
      }
      rest.remove_prefix(end + 1);
    }
    begun.append(rest);
  }
  Parse(WithoutReturn(begun));
}

void CXmlParser::Parse(std::string_view chunk) {
  for (;;) {
    if (myTrim) {
      chunk = Trim(chunk);
    }
    const bool isText = myState == kText;
    std::string& begun = isText ? myText : myTag;
    const std::size_t end = chunk.find(isText ? '<' : '>');
    if (end == std::string_view::npos) {
      begun.append(chunk);
      return;
    }
    myState = isText ? kTag : kText;
    Finish(begun, chunk.substr(0, end),
           isText ? &CXmlParser::ProcessText : &CXmlParser::ProcessTag);
    chunk.remove_prefix(end + 1);
  }
}

// Processes a text or a tag that ends here. Most begin in the same piece, too, and are looked at
// where they are. What has begun earlier is taken out first, for a handler may parse a piece
// itself; the memory comes back.
void CXmlParser::Finish(std::string& begun, std::string_view last,
                        void (CXmlParser::*process)(std::string_view)) {
  if (begun.empty()) {
    (this->*process)(last);
    return;
  }
  std::string whole = std::exchange(begun, {});
  whole.append(last);
  (this->*process)(whole);
  if (begun.empty()) {
    whole.clear();
    begun = std::move(whole);
  }
}

void CXmlParser::ProcessText(std::string_view text) {
  if (text.empty()) {
    return;
  }
  std::string reported = std::exchange(mySpare, {});
  reported = myTrim ? Trim(TrimLineEnds(text)) : text;
  myHandler->Characters(reported);
  mySpare = std::move(reported);
}

void CXmlParser::ProcessTag(std::string_view tag) {
  if (myTrim) {
    tag = TrimLineEnds(Trim(tag));
  }
  if (tag.empty() || tag.front() == '!') {
    return;
  }
  std::string name = std::exchange(mySpare, {});
  if (tag.front() == '/') {
    name = tag.substr(1);
    myHandler->EndElement(name);
  } else {
    ReportElement(tag, name);
  }
  mySpare = std::move(name);
}

void CXmlParser::ReportElement(std::string_view tag, std::string& name) {
  name.clear();
  if (tag.find('=') == std::string_view::npos) {
    name = tag;
  } else {
    TakeAttributes(tag, name);
  }
  const bool isClosed = name.ends_with('/');
  if (isClosed) {
    name.pop_back();
    KeepTrimmed(name);
  }
  const CXmlHandlerInterface::Attributes attributes = std::exchange(myAttributes, {});
  myHandler->StartElement(name, attributes);
  if (isClosed) {
    myHandler->EndElement(name);
  }
}

// Moves `name=value` pairs out of the tag text and leaves the rest: the element name, stray words,
// and a final "/". The rule is "split at the first '=', join the text before the name and
// the text after the value, start again"; `left` is the front of that text, free of "=", so that
// nothing is scanned twice.
void CXmlParser::TakeAttributes(std::string_view tag, std::string& left) {
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
      left = tag.ends_with('/') ? "/" : "";
      return;
    }
    left.resize(blank);
    if (!tag.empty() && !StartsWithBlankOrSlash(tag)) {
      left += ' ';
    }
  }
  left.append(tag);
  KeepTrimmed(left);
}

}  // namespace vask
