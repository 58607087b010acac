#include "utils/xml/xml.h"

#include "support/logcapture.h"
#include "utils/xml/xmlparser.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

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
      {"<a y='two' x=\"1\"><b>t</b></a>", "<a x=\"1\" y=\"two\" >\n  <b>\n    t\n  </b>\n</a>\n"},
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
  std::string text;
  CRect<int> rect;
  int extra = -1;

  void Serialize(CXmlContext& xml) {
    if (xml.BeginNode("Inner")) {
      xml.Value("Text", text);
      xml.EndNode("Inner");
    }
    xml.Value("Rect", rect);
    xml.OptionalValue("Extra", extra);
  }
  bool operator==(const CRecord&) const = default;
};

TEST(Xml, ObjectsReadBackWhatTheyWrote) {
  const test::CLogCapture log;
  CRecord written{"two words", {1, -2, 3, 4}, 9};
  ASSERT_TRUE(SaveXml(written, "record.xml"));
  CRecord read;
  EXPECT_TRUE(LoadXml(read, "record.xml"));
  EXPECT_EQ(read, written);
  EXPECT_FALSE(LoadXml(read, "missing.xml") || LoadXml(read, "") || LoadXml(read, "."));
  EXPECT_FALSE(SaveXml(read, "no folder/record.xml"));
  std::ofstream("odd.xml") << "<r><Rect y=\"z\" h=\"99999999999\"/><Extra>x</Extra></r>";
  EXPECT_TRUE(LoadXml(read, "odd.xml"));  // what does not read as its type keeps the value
  EXPECT_EQ(read, written);
  EXPECT_EQ(log.Text(), "");
}

// clang-format off
TEST(XmlContext, ReportsWhatIsOutOfPlace) {
  const std::string end = " in file: f.xml at line 0\n";
  const std::string order =
      "Xml warning a child node wasn't in the place it should be, order fucked up in node: r" + end;
  const std::string none = "Xml warning, ain't no childs left in the current node: r" + end;
  const std::string other = "Xml warning, trying to end a different node: a should end: b" + end;
  // A letter asks for the child of that name, ">" goes down into "b", "<" ends "b", "!" ends "a".
  const struct { std::string asked, found, logged; } cases[] = {
      {"abac", "1234", ""}, {"cbaa", "4231", order + none + order + order},
      {"cza", "401", order + none + none + order}, {"zab", "012", ""},
      {"a>d<ac", "1534", ""}, {"a>!ac", "134", other},
  };
  for (const auto& c : cases) {
    const auto root = Read("<r><a>1</a><b><d>5</d>2</b><a>3</a><c>4</c></r>");
    CXmlContext xml(root.get(), CXmlContext::kReading, "f.xml");
    const test::CLogCapture log;
    std::string found;
    for (const char asked : c.asked) {
      if (asked == '>') {
        EXPECT_TRUE(!xml.BeginNode("z") && xml.BeginNode("b"));
      } else if (asked == '<' || asked == '!') {
        xml.EndNode(asked == '<' ? "b" : "a");
      } else {
        const CXmlElement* child = xml.GetChild(std::string(1, asked));
        found += child == nullptr ? "0" : child->GetContent();
      }
    }
    EXPECT_EQ(found + log.Text(), c.found + c.logged) << c.asked;
  }
}
// clang-format on

std::string Repeat(int count, const std::string& piece) {
  std::string text;
  for (; count > 0; --count) {
    text += piece;
  }
  return text;
}

// Each would take minutes, or the whole stack, if the work grew faster than the input.
TEST(Xml, HugeDocuments) {
  EXPECT_EQ(Read(Repeat(300'000, "<a>"))->GetChildCount(), 1);
  EXPECT_EQ(Written(*Read(Repeat(3'000, "<a>"))).size(), 3'000U * (4 + 5 + 2 * 2'999));

  std::string attributes = Repeat(200'000, " w");
  for (int i = 0; i < 100'000; ++i) {
    attributes += " n" + std::to_string(i) + " = \"v\"";
  }
  EXPECT_EQ(Read("<a" + attributes + "/>")->GetAttributes().size(), 100'000U);

  const std::string value(10'000'000, '=');
  const std::string content = value + Repeat(500'000, "&lt;&amp;");
  const auto big = Read("<a x=\"" + value + "\" y=\"1\">" + content + "</a>");
  EXPECT_EQ(big->GetAttribute("x").ToString(), value);
  EXPECT_EQ(big->GetContent(), value + Repeat(500'000, "<&"));

  const auto list = Read("<r>" + Repeat(200'000, "<i><v>1</v></i>") + "</r>");
  CXmlContext xml(list.get(), CXmlContext::kReading);
  int items = 0;
  for (int number = 0; items < 200'000 && xml.BeginNode("i"); items += number) {
    xml.Value("v", number);
    xml.EndNode("i");
  }
  EXPECT_EQ(items, 200'000);
}

// Writes down the events as text: "<name key=[value]>", "</name>", "'text'".
class CEventTrace : public CXmlHandlerInterface {
 public:
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
  return handler.trace;
}

// clang-format off
TEST(XmlParser, Events) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"text only", ""}, {"<a", ""}, {"<a>x", "<a>"}, {"<a>hello</a>", "<a>'hello'</a>"},
      {"<a x=\"1\" y=\"two words\">", "<a x=[1] y=[two words]>"}, {"<a/><b />", "<a></a><b></b>"},
      {"<a x=\"1\" y=\"2\" />", "<a x=[1] y=[2]></a>"}, {"<a x='b c'>", "<a c' x=[]>"},
      {"<a x=\"&lt;\">&lt;</a>", "<a x=[&lt;]>'&lt;'</a>"},
      {"<!-- <a> --><!DOCTYPE x>", "'-->'"}, {"<!-- one line -->", ""},
      {"<?xml version=\"1.0\"?>", "<?xml ? version=[1.0]>"}, {"<></><  ><a ></ a>", "</><a></ a>"},
      {"<a x=\"1 > 2\"><b>", "<a x=[]>'2\">'<b>"}, {"<a x=\"<b>\">", "<a x=[<]>"},
      {"<a>one\n  two  \n\n three</a>", "<a>'onetwothree'</a>"}, {"<a\nb>", "<ab>"},
      // An attribute goes out of the text around it, which joins; the first of a name counts.
      {"<e a=\"1\"b = \"2\">", "<e a=[1] b=[2]>"}, {"<e a b=c d=\"x y\">", "<e a b=[] d=[x y]>"},
      {"<e a=\"1\"f a=\"2\"/>", "<e f a=[1]></e f>"}, {"<e a=\"=\" b=\"c/>", "<e a=[=] b=[c]>"},
      {"<a=\"1\" b=\"2\">", "< a=[1]>"}, {"<=\"1\" b/>", "< =[1]></>"},
      {"<a>\r\ntext\r\n</a>\r\n", "<a>'text'</a>"}, {"<a>x</b></c>", "<a>'x'</b></c>"},
  };
  for (const auto& [document, events] : cases) {
    EXPECT_EQ(Trace(document), events) << document;
  }
  EXPECT_EQ(Trace("< a > b <c x=\" 1 \" />", false), "< a >' b '<c x=[ 1 ]></c>") << "untrimmed";
}
// clang-format on

}  // namespace
}  // namespace vask
