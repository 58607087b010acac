#include "utils/xml/xml.h"

#include "support/logcapture.h"
#include "utils/trim.h"
#include "utils/xml/xmlparser.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <sstream>
#include <utility>

namespace vask {
namespace {

std::unique_ptr<CXmlElement> Read(const std::string& document) {
  std::istringstream stream(document);
  return ReadXml(stream);
}

std::string Written(const CXmlElement& root) {
  std::ostringstream stream;
  WriteXml(root, stream);
  return stream.str();
}

// clang-format off
TEST(Xml, TreesAndTheirText) {
  const std::pair<const char*, const char*> cases[] = {
      {"<a y='two' x=\"1\"><b>t</b><b/></a>", "<a x=\"1\" y=\"two\" >\n  <b>\n    t\n  </b>\n  <b>\n  </b>\n</a>\n"},
      {"<a>&lt;x&gt; &amp;&apos;&quot; &amp;lt; &amp;quot; &amp;amp; &#65; &foo;</a>",
       "<a>\n  <x> &'\" &lt; \" &amp; &#65; &foo;\n</a>\n"},
      {"<a>first<b>x</b>last</a>", "<a>\n  last\n  <b>\n    x\n  </b>\n</a>\n"},
      {"<a>kept</x></y></z>text<b>after</b></a>", "<a>\n  kept\n</a>\n"},
      {"<a></a><b><c>dropped</c></b>", "<a>\n</a>\n"}, {"text<a><b>", "<a>\n  <b>\n  </b>\n</a>\n"},
  };
  for (const auto& [document, written] : cases) {
    EXPECT_EQ(Written(*Read(document)), written) << document;
  }
  EXPECT_EQ(Read("text <!-- a --> </a>"), nullptr);
}
// clang-format on

struct CRecord {
  bool flag = false;
  unsigned count = 0;
  float ratio = 0;
  std::string text;
  CRect<int> rect;
  int extra = -1;

  void Serialize(CXmlContext& xml) {
    xml.Value("Flag", flag);
    xml.Value("Count", count);
    if (xml.BeginNode("Inner")) {
      xml.Value("Ratio", ratio);
      xml.Value("Text", text);
      xml.EndNode("Inner");
    }
    xml.Value("Rect", rect);
    xml.OptionalValue("Extra", extra);
  }
  bool operator==(const CRecord&) const = default;
};

TEST(Xml, ObjectsReadBackWhatTheyWrote) {
  const CRecord record{true, 4'000'000'000U, 0.25F, "two words", {1, -2, 3, 4}, 9};
  CRecord written = record;
  ASSERT_TRUE(SaveXml(written, "record.xml", "Record"));
  CRecord read;
  const test::CLogCapture log;
  EXPECT_TRUE(LoadXml(read, "record.xml"));
  EXPECT_EQ(read, record);
  EXPECT_EQ(ReadXmlFile("record.xml")->GetName(), "Record");
  EXPECT_FALSE(LoadXml(read, "missing.xml") || LoadXml(read, "") || LoadXml(read, "."));
  EXPECT_FALSE(SaveXml(read, "no folder/record.xml"));
  std::ofstream("odd.xml")
      << "<r><Flag>2</Flag><Count>-1</Count><Rect y=\"z\" h=\"99999999999\"/></r>";
  EXPECT_TRUE(LoadXml(read, "odd.xml"));  // what does not read as its type keeps the value
  EXPECT_EQ(read, record);
  EXPECT_EQ(log.Text(), "");
}

TEST(XmlContext, ReportsWhatIsOutOfPlace) {
  const std::string end = " in file: f.xml at line 0\n";
  const std::string order =
      "Xml warning a child node wasn't in the place it should be, order fucked up in node: r" + end;
  const std::string none = "Xml warning, ain't no childs left in the current node: r" + end;
  const std::string other = "Xml warning, trying to end a different node: a should end: b" + end;
  // A letter asks for the child of that name, ">" goes down into "b", "<" ends "b", "!" ends "a".
  const struct {
    const char* asked;
    const char* found;
    std::string logged;
  } cases[] = {
      {"abac", "1234", ""},
      {"cbaa", "4231", order + none + order + order},
      {"cza", "401", order + none + none + order},
      {"zab", "012", ""},
      {"a>d<ac", "1534", ""},
      {"a>!ac", "134", other},
  };
  for (const auto& c : cases) {
    const auto root = Read("<r><a>1</a><b><d>5</d>2</b><a>3</a><c>4</c></r>");
    CXmlContext xml(root.get(), CXmlContext::kReading, "f.xml");
    const test::CLogCapture log;
    std::string found;
    for (const char asked : std::string(c.asked)) {
      if (asked == '>') {
        EXPECT_TRUE(!xml.BeginNode("z") && xml.BeginNode("b"));
      } else if (asked == '<' || asked == '!') {
        xml.EndNode(asked == '<' ? "b" : "a");
      } else {
        const CXmlElement* child = xml.GetChild(std::string(1, asked));
        found += child == nullptr ? "0" : child->GetContent();
      }
    }
    EXPECT_EQ(found, c.found) << c.asked;
    EXPECT_EQ(log.Text(), c.logged) << c.asked;
  }
}

TEST(XmlContext, BelowNoElementNothingHappens) {
  CXmlElement child("child");
  CXmlContext above(&child, CXmlContext::kReading);
  above.EndNode("child");
  CXmlContext writing(nullptr, CXmlContext::kWriting);
  for (CXmlContext* xml : {&above, &writing}) {
    int number = 4;
    EXPECT_FALSE(xml->HasChild("a") || xml->BeginNode("a") || xml->Value("a", number));
    EXPECT_EQ(xml->GetChild("a"), nullptr);
    xml->SetAttribute("a", 1);
    xml->EndNode("a");
    EXPECT_EQ(xml->GetCurrent(), nullptr);
  }
}

std::string Repeat(int count, const std::function<std::string(int)>& piece) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += piece(i);
  }
  return text;
}

// Each would take minutes, or the whole stack, if the work grew faster than the input.
TEST(Xml, HugeDocuments) {
  const std::string deep = Repeat(300'000, [](int) { return "<a>"; });
  EXPECT_EQ(Read(deep)->GetChildCount(), 1);
  EXPECT_EQ(Written(*Read(deep.substr(0, 3 * 3'000))).size(), 3'000U * (4 + 5 + 2 * 2'999));

  const auto attribute = [](int i) { return " n" + std::to_string(i) + " = \"v\""; };
  const std::string words = Repeat(200'000, [](int) { return " w"; });
  const auto wide = Read("<a" + words + Repeat(100'000, attribute) + "/>");
  EXPECT_EQ(wide->GetAttributes().size(), 100'000U);

  const std::string value(10'000'000, '=');
  const auto big = Read("<a x=\"" + value + "\" y=\"1\">" + value + "&amp;</a>");
  EXPECT_EQ(big->GetAttribute("x").ToString(), value);
  EXPECT_EQ(big->GetContent(), value + "&");
  const std::string entities = Repeat(500'000, [](int) { return "&lt;&amp;"; });
  EXPECT_EQ(Read("<a>" + entities + "</a>")->GetContent().size(), 1'000'000U);

  const auto list = Read("<r>" + Repeat(200'000, [](int) { return "<i><v>1</v></i>"; }) + "</r>");
  CXmlContext xml(list.get(), CXmlContext::kReading);
  int sum = 0;
  while (sum < 200'000 && xml.HasChild("i") && xml.BeginNode("i")) {
    int item = 0;
    xml.Value("v", item);
    sum += item;
    xml.EndNode("i");
  }
  EXPECT_EQ(sum, 200'000);
}

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

// clang-format off
TEST(XmlParser, Events) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"text only", ""}, {"<a", ""}, {"<a>x", "<a>"}, {"<a>hello</a>", "<a>'hello'</a>"},
      {"<a x=\"1\" y=\"two words\">", "<a x=[1] y=[two words]>"},
      {"<a/><b />", "<a></a><b></b>"}, {"<a x=\"1\"/>", "<a x=[1]></a>"},
      {"<a x=\"1\" y=\"2\" />", "<a x=[1] y=[2]></a>"},
      {"<a x = \"1\" y= \"2\">", "<a x=[1] y=[2]>"}, {"<a x=\"1\"y=\"2\">", "<a x=[1] y=[2]>"},
      {"<a x=\"1\" x=\"2\">", "<a x=[1]>"}, {"<a x=\"b=c\">", "<a x=[b=c]>"},
      {"<a x=\"\" y=q z= >", "<a x=[] y=[] z=[]>"}, {"<a x=\"no end >", "<a x=[no en]>"},
      {"<a x='b c'>", "<a c' x=[]>"}, {"<a x=\"1\" junk y=\"2\">", "<a junk x=[1] y=[2]>"},
      {"<a href=\"b/\"></a>", "<a href=[b/]></a>"}, {"<x=\"1\" y=\"2\">t", "< x=[1]>"},
      {"<x=\"1\"/>", "< x=[1]></>"}, {"<=><=\"1\">", "< =[]>< =[1]>"},
      {"<a x=\"&lt;\">&lt;</a>", "<a x=[&lt;]>'&lt;'</a>"},
      {"<!-- <a> --><!DOCTYPE x>", "'-->'"}, {"<!-- one line -->", ""},
      {"<?xml version=\"1.0\"?>", "<?xml ? version=[1.0]>"}, {"<></><  ><a ></ a>", "</><a></ a>"},
      {"<a x=\"1 > 2\"><b>", "<a x=[]>'2\">'<b>"}, {"<a x=\"<b>\">", "<a x=[<]>"},
      {"<a>one\n  two  \n\n three</a>", "<a>'onetwothree'</a>"},
      {"<a>\n  <b>\n  </b>\n</a>", "<a><b></b></a>"}, {"<a\nb>", "<ab>"},
      {"<a>\r\ntext\r\n</a>\r\n", "<a>'text'</a>"}, {"<a>x</b></c>", "<a>'x'</b></c>"},
  };
  for (const auto& [document, events] : cases) {
    EXPECT_EQ(Trace(document), events) << document;
  }
  EXPECT_EQ(Trace("< a > b <c x=\" 1 \" />", false), "< a >' b '<c x=[ 1 ]></c>") << "untrimmed";
}
// clang-format on

// The rule for attributes, word for word: split at the first "=", put the tag text together again,
// start over. Answers the events of a tag.
std::string PlainTag(std::string tag) {
  const auto at = [](const std::string& text, std::size_t i, const char* set) {
    return i < text.size() && std::string(set).find(text[i]) != std::string::npos;
  };
  CXmlHandlerInterface::Attributes attributes;
  tag = Trim(tag);
  for (std::size_t equals; (equals = tag.find('=')) != std::string::npos;) {
    const std::string left(Trim(tag.substr(0, equals)));
    const std::string right(Trim(tag.substr(equals + 1)));
    std::size_t end = 0;
    int quotes = 0;
    for (; end < right.size() && quotes < 2 && (quotes == 1 || !at(right, end, " \t")); ++end) {
      quotes += right[end] == '"' ? 1 : 0;
    }
    const std::string value(Trim(right.substr(0, end)));
    const std::size_t blank = left.find_last_of(" \t") + 1;
    attributes.insert(
        {left.substr(blank), value.size() < 2 ? "" : value.substr(1, value.size() - 2)});
    const std::string rest = right.substr(end);
    if (blank == 0) {
      tag = rest.ends_with('/') ? "/" : "";
      break;
    }
    const bool needsBlank = quotes == 2 && !rest.empty() && !at(rest, 0, " \t/");
    tag = left.substr(0, blank - 1) + (needsBlank ? " " : "") + rest;
  }
  tag = Trim(tag);
  const std::string name(Trim(tag.substr(0, tag.size() - (tag.ends_with('/') ? 1 : 0))));
  CEventTrace events;
  events.StartElement(name, attributes);
  tag.ends_with('/') ? events.EndElement(name) : void();
  return events.trace;
}

TEST(XmlParser, AttributesAsThePlainRule) {
  const char* const pieces[] = {"a", "bc", "=", "=", "=\"", "\"", "\"", " ", " ", "\t", "/", "'"};
  std::mt19937 random(1);
  for (int round = 0; round < 50'000; ++round) {
    std::string tag = random() % 2 == 0 ? "e" : "=";
    for (auto length = random() % 16; length > 0; --length) {
      tag += pieces[random() % std::size(pieces)];
    }
    ASSERT_EQ(Trace("<" + tag + ">"), PlainTag(tag)) << tag;
  }
}

}  // namespace
}  // namespace vask
