#include "utils/xml/xml.h"

#include "support/logcapture.h"
#include "utils/xml/xmlhandler.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace vask {
namespace {

std::unique_ptr<CXmlElement> Read(const std::string& document) {
  std::istringstream stream(document);
  return ReadXml(stream);
}

std::string Rewritten(const std::string& document) {
  std::ostringstream stream;
  WriteXml(*Read(document), stream);
  return stream.str();
}

TEST(Xml, DocumentsAreReadAndWritten) {
  EXPECT_EQ(Rewritten("<a y='two' x=\"1\"><b>t</b></a>"),
            "<a x=\"1\" y=\"two\" >\n  <b>\n    t\n  </b>\n</a>\n");
  EXPECT_EQ(Rewritten("<a>&lt;x&gt; &amp;&apos;&quot; &amp;lt; &amp;quot; &amp;amp; &foo;</a>"),
            "<a>\n  <x> &'\" &lt; \" &amp; &foo;\n</a>\n");
  EXPECT_EQ(Rewritten("<a>first<b/>last</a>"), "<a>\n  last\n  <b>\n  </b>\n</a>\n");
  EXPECT_EQ(Rewritten("<a>kept</x></y></z>text<b>after</b></a>"), "<a>\n  kept\n</a>\n");
  EXPECT_EQ(Rewritten("text<a><b"), "<a>\n</a>\n");
  EXPECT_EQ(Rewritten("<a\nb\r\r\n>one\r\n  two  \n\n three \r\r\n</a>"),
            "<ab>\n  onetwothree\n</ab>\n");
  EXPECT_EQ(Rewritten("<!-- <a> --><!DOCTYPE x><></><b ></ b>"), "<b>\n</b>\n");
  EXPECT_EQ(Read("text <!-- a --> </a>"), nullptr);
}

TEST(Xml, AHandlerForgetsTheDocumentBefore) {
  CXmlHandler handler;
  handler.StartElement("a", {});
  handler.StartDocument();
  handler.StartElement("b", {});
  EXPECT_EQ(handler.GetRootElement()->GetName(), "b");
}

struct SPlace {
  void Serialize(CXmlContext& xml) {
    EXPECT_TRUE(xml.Value("Rect", rect));
    xml.OptionalValue("Extra", extra);
  }
  CRect<int> rect;
  int extra = -1;
};

class CThing {
 public:
  void Serialize(CXmlContext& xml);
  int mySize = 0;
  SPlace myChild;
};

void CThing::Serialize(CXmlContext& xml) {
  xml.Value("Size", mySize);
  if (xml.BeginNode("Child")) {
    myChild.Serialize(xml);
    xml.EndNode("Child");
  }
}

TEST(Xml, ObjectsReadBackWhatTheyWrote) {
  const test::CLogCapture log;
  CThing written{.mySize = 5, .myChild = {.rect = {1, -2, 3, 4}, .extra = 9}};
  ASSERT_TRUE(SaveXml(written, "thing.xml"));
  CThing read;
  EXPECT_TRUE(LoadXml(read, "thing.xml"));
  for (const char* missing : {"missing.xml", "", "."}) {
    EXPECT_FALSE(LoadXml(read, missing)) << missing;
  }
  EXPECT_FALSE(SaveXml(read, "no folder/thing.xml"));
  std::ofstream("odd.xml") << "<r><Size>x</Size><Child><Rect y=\"z\" h=\"99999999999\" w=\"7\"/>"
                           << "</Child></r>";
  EXPECT_TRUE(LoadXml(read, "odd.xml"));
  EXPECT_EQ(read.mySize, 5);
  EXPECT_EQ(read.myChild.rect, (CRect<int>{1, -2, 7, 4})) << "what is no number changes nothing";
  EXPECT_EQ(read.myChild.extra, 9);
  EXPECT_EQ(log.Text(), "") << "the optional element is missing";
}

TEST(XmlContext, ReportsWhatIsOutOfPlace) {
  const std::string end = " in file: f.xml at line 0\n";
  const std::string order =
      "Xml warning a child node wasn't in the place it should be, order fucked up in node: r" + end;
  const std::string none = "Xml warning, ain't no childs left in the current node: r" + end;
  const auto root = Read("<r><a>1</a><b><d>5</d>2</b><a>3</a><c>4</c></r>");
  CXmlContext xml(root.get(), CXmlContext::kReading, "f.xml");
  test::CLogCapture log;
  const auto contents = [&xml](const std::string& names) {
    std::string found;
    for (const char name : names) {
      const CXmlElement* child = xml.GetChild(std::string(1, name));
      found += child != nullptr ? child->GetContent() : "-";
    }
    return found;
  };
  EXPECT_EQ(contents("a"), "1");
  EXPECT_FALSE(xml.BeginNode("z"));
  EXPECT_TRUE(xml.BeginNode("b"));
  xml.EndNode("b");
  EXPECT_EQ(contents("ac"), "34");
  EXPECT_EQ(log.Text(), "") << "in order";
  EXPECT_TRUE(xml.HasChild("a"));
  EXPECT_EQ(contents("zac"), "-14");
  EXPECT_EQ(log.Text(), none + none + order + order);
  log.Clear();
  EXPECT_TRUE(xml.BeginNode("b"));
  xml.EndNode("a");
  EXPECT_EQ(contents("a"), "3") << "after b, which has ended";
  EXPECT_EQ(log.Text(),
            none + order + "Xml warning, trying to end a different node: a should end: b" + end);
}

TEST(XmlContext, GoesOnAfterTheElementThatItBeganIn) {
  const auto root = Read("<r><a>1</a><b/><c>2</c><c>3</c></r>");
  CXmlContext xml(root->GetChild(1), CXmlContext::kReading);
  xml.EndNode("b");
  EXPECT_EQ(xml.GetChild("c")->GetContent(), "2");
  EXPECT_FALSE(CXmlContext(nullptr, CXmlContext::kReading).HasChild("c"));
}

// Each would take minutes, or the whole stack, if the work grew faster than the input.
TEST(Xml, HugeDocumentsEndSoonAndDoNotNest) {
  std::string nested, attributes = "<a";
  for (int i = 0; i < 300'000; ++i) {
    nested += "<a>";
    attributes += " w n" + std::to_string(i) + " = \"v\"";
  }
  EXPECT_EQ(Read(nested)->GetChildCount(), 1);
  EXPECT_EQ(Read(attributes + "/>")->GetAttributes().size(), 300'000U);
}

TEST(Xml, LinesAreWholeWhereverTheFileIsCut) {
  std::string document = "<a>";
  for (int i = 0; i < 20'000; ++i) {
    document += "x y\r\n";
  }
  EXPECT_EQ(Read(document + "<")->GetContent().size(), 20'000 * 3U);
}

// An attribute is taken out of the text around it, which joins; the first of a name counts.
TEST(Xml, AttributesAreTakenAlsoOutOfBrokenTags) {
  EXPECT_EQ(Rewritten("<a x='b c'>"), "<a c' x=\"\" >\n</a c'>\n");
  EXPECT_EQ(Rewritten("<a x=\"1 > 2\"><b>"), "<a x=\"\" >\n  2\">\n  <b>\n  </b>\n</a>\n");
  EXPECT_EQ(Rewritten("<e a b=c d=\"x y\">"), "<e a b=\"\" d=\"x y\" >\n</e a>\n");
  EXPECT_EQ(Rewritten("<e a=\"1\"f a=\"2\"/>"), "<e f a=\"1\" >\n</e f>\n");
  EXPECT_EQ(Rewritten("<e a=\"=\" b=\"c/>"), "<e a=\"=\" b=\"c\" >\n</e>\n");
  EXPECT_EQ(Rewritten("<a><=\"1\" b/>t</a>"), "<a>\n  t\n  < =\"1\" >\n  </>\n</a>\n");
}

}  // namespace
}  // namespace vask
