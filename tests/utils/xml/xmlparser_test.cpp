#include "utils/xml/xmlparser.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace vask {
namespace {

// Writes down the events as text: "<name key=[value]>", "</name>", "'text'".
class CEventTrace : public CXmlHandlerInterface {
 public:
  void StartDocument() override { trace += "{"; }
  void EndDocument() override { trace += "}"; }
  void Characters(const std::string& text) override { trace += "'" + text + "'"; }
  void StartElement(const std::string& name, const Attributes& attrs) override {
    trace += "<" + name;
    for (const auto& [key, value] : attrs) {
      trace += " " + key + "=[" + value + "]";
    }
    trace += ">";
  }
  void EndElement(const std::string& name) override { trace += "</" + name + ">"; }

  std::string trace;
};

std::string Trace(const std::string& document, bool trim = true) {
  CEventTrace handler;
  std::istringstream stream(document);
  CXmlParser(handler, trim).ParseStream(stream);
  return handler.trace.substr(1, handler.trace.size() - 2);
}

TEST(XmlParser, Events) {
  const struct {
    const char* document;
    const char* events;
  } cases[] = {
      {"", ""},
      {"<a>hello</a>", "<a>'hello'</a>"},
      {"<a x=\"1\" y=\"two words\">", "<a x=[1] y=[two words]>"},
      {"<a/><b />", "<a></a><b></b>"},
      {"<a x=\"1\"/>", "<a x=[1]></a>"},
      {"<a x=\"1\" y=\"2\" />", "<a x=[1] y=[2]></a>"},
      {"<a x = \"1\" y= \"2\">", "<a x=[1] y=[2]>"},
      {"<a x=\"1\"y=\"2\">", "<a x=[1] y=[2]>"},
      {"<a x=\"1\" x=\"2\">", "<a x=[1]>"},
      {"<a x=\"b=c\">", "<a x=[b=c]>"},
      {"<a x=\"\" y=q z= >", "<a x=[] y=[] z=[]>"},
      {"<a x=\"no end >", "<a x=[no en]>"},
      {"<a x='b c'>", "<a c' x=[]>"},
      {"<a x=\"1\" junk y=\"2\">", "<a junk x=[1] y=[2]>"},
      {"<a href=\"b/\"></a>", "<a href=[b/]></a>"},
      {"<x=\"1\" y=\"2\">t", "< x=[1]>"},
      {"<x=\"1\"/>", "< x=[1]></>"},
      {"<=><=\"1\">", "< =[]>< =[1]>"},
      {"<a>&lt;</a>", "<a>'&lt;'</a>"},
      {"<a x=\"&lt;\">", "<a x=[&lt;]>"},
      {"<!-- <a> --><!DOCTYPE x>", "'-->'"},
      {"<!-- one line -->", ""},
      {"<?xml version=\"1.0\"?>", "<?xml ? version=[1.0]>"},
      {"<></><  ><a ></ a>", "</><a></ a>"},
      {"<a x=\"1 > 2\"><b>", "<a x=[]>'2\">'<b>"},
      {"<a x=\"<b>\">", "<a x=[<]>"},
      {"<a>x", "<a>"},
      {"<a>one\n  two  \n\n three</a>", "<a>'onetwothree'</a>"},
      {"<a>\n  <b>\n  </b>\n</a>", "<a><b></b></a>"},
      {"<a>\r\ntext\r\n</a>\r\n", "<a>'text'</a>"},
      {"<a\nb>", "<ab>"},
      {"text only", ""},
      {"<a", ""},
      {"<a>x</b></c>", "<a>'x'</b></c>"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Trace(c.document), c.events) << c.document;
  }
}

TEST(XmlParser, WithoutTrimmingBlanksStay) {
  EXPECT_EQ(Trace("< a > b <c x=\" 1 \" />", false), "< a >' b '<c x=[ 1 ]></c>");
}

TEST(XmlParser, MissingFileIsAnEmptyDocument) {
  for (const char* name : {"", "no such file.xml", "."}) {
    CEventTrace handler;
    CXmlParser(handler).ParseFile(name);
    EXPECT_EQ(handler.trace, "{}") << name;
  }
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(" \t");
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The rule for attributes, word for word: split at the first "=", put the tag text together again,
// start over. Answers the events of a tag.
std::string PlainTag(std::string tag) {
  CXmlHandlerInterface::Attributes attributes;
  tag = Trimmed(tag);
  for (std::size_t equals; (equals = tag.find('=')) != std::string::npos;) {
    const std::string left = Trimmed(tag.substr(0, equals));
    const std::string right = Trimmed(tag.substr(equals + 1));
    std::size_t end = 0;
    bool quoted = false;
    bool closed = false;
    while (end < right.size() && !closed && (quoted || (right[end] != ' ' && right[end] != '\t'))) {
      closed = quoted && right[end] == '"';
      quoted = quoted != (right[end] == '"');
      ++end;
    }
    const std::string value = Trimmed(right.substr(0, end));
    const std::size_t blank = left.find_last_of(" \t");
    attributes.insert({blank == std::string::npos ? left : left.substr(blank + 1),
                       value.size() < 2 ? "" : value.substr(1, value.size() - 2)});
    std::string rest = right.substr(end);
    if (blank == std::string::npos) {
      tag = !rest.empty() && rest.back() == '/' ? "/" : "";
      break;
    }
    if (closed && !rest.empty() && rest[0] != ' ' && rest[0] != '\t' && rest[0] != '/') {
      rest = " " + rest;
    }
    tag = left.substr(0, blank) + rest;
  }
  tag = Trimmed(tag);
  const bool selfClosing = !tag.empty() && tag.back() == '/';
  if (selfClosing) {
    tag.pop_back();
  }
  CEventTrace events;
  const std::string name = Trimmed(tag);
  events.StartElement(name, attributes);
  if (selfClosing) {
    events.EndElement(name);
  }
  return events.trace;
}

TEST(XmlParser, AttributesAsThePlainRule) {
  const char* const pieces[] = {"a", "bc", "=", "=", "=\"", "\"", "\"", " ", " ", "\t", "/", "'"};
  std::mt19937 random(1);
  for (int round = 0; round < 50'000; ++round) {
    std::string tag = "e";
    for (auto length = random() % 16; length > 0; --length) {
      tag += pieces[random() % std::size(pieces)];
    }
    tag.erase(0, random() % 2);
    if (Trimmed(tag).empty() || Trimmed(tag)[0] == '/') {
      continue;
    }
    ASSERT_EQ(Trace("<" + tag + ">"), PlainTag(tag)) << tag;
  }
}

}  // namespace
}  // namespace vask
