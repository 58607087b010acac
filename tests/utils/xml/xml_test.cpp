#include "utils/xml/xml.h"

#include "support/logcapture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <limits>
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

TEST(Xml, TreesAndTheirText) {
  const struct {
    const char* document;
    const char* written;
  } cases[] = {
      {"<a/>", "<a>\n</a>\n"},
      {"<a y='two' x=\"1\"><b>t</b><b/></a>",
       "<a x=\"1\" y=\"two\" >\n  <b>\n    t\n  </b>\n  <b>\n  </b>\n</a>\n"},
      {"<a>&lt;x&gt; &amp;&apos;&quot; &amp;lt; &amp;quot; &amp;amp; &#65; &foo;</a>",
       "<a>\n  <x> &'\" &lt; \" &amp; &#65; &foo;\n</a>\n"},
      {"<a>first<b>x</b>last</a>", "<a>\n  last\n  <b>\n    x\n  </b>\n</a>\n"},
      {"<a>kept</x></y></z>text<b>after</b></a>", "<a>\n  kept\n</a>\n"},
      {"<a></a><b><c>dropped</c></b>", "<a>\n</a>\n"},
      {"text<a><b>", "<a>\n  <b>\n  </b>\n</a>\n"},
  };
  for (const auto& c : cases) {
    const auto root = Read(c.document);
    ASSERT_NE(root, nullptr) << c.document;
    EXPECT_EQ(Written(*root), c.written) << c.document;
  }
  EXPECT_EQ(Read("text <!-- a --> </a>"), nullptr);
}

TEST(Xml, AttributesHoldTypedValuesAndTheFirstWins) {
  CXmlElement element("e");
  element.SetAttribute("n", 7);
  element.SetAttribute("n", 8);
  element.SetAttribute("t", std::string_view("text"));
  ASSERT_NE(element.GetAttribute("n").Get<int>(), nullptr);
  EXPECT_EQ(*element.GetAttribute("n").Get<int>(), 7);
  EXPECT_EQ(element.GetAttribute("n").Get<unsigned>(), nullptr);
  EXPECT_EQ(*element.GetAttribute("t").Get<std::string>(), "text");
  EXPECT_EQ(element.GetAttribute("none").GetType(), typeid(void));
  EXPECT_EQ(element.GetChild(0), nullptr);
  EXPECT_EQ(element.GetChild(-1), nullptr);
}

struct CRecord {
  bool flag = false;
  int number = 0;
  unsigned count = 0;
  float ratio = 0;
  std::string text;
  CRect<int> rect;
  std::vector<std::string> items;
  int extra = -1;

  void Serialize(CXmlContext& xml) {
    xml.Value("Flag", flag);
    xml.Value("Number", number);
    xml.Value("Count", count);
    if (xml.BeginNode("Inner")) {
      xml.Value("Ratio", ratio);
      xml.Value("Text", text);
      if (xml.BeginNode("Items")) {
        SerializeItems(xml);
        xml.EndNode("Items");
      }
      xml.EndNode("Inner");
    }
    xml.Value("Rect", rect);
    xml.OptionalValue("Extra", extra);
  }

  void SerializeItems(CXmlContext& xml) {
    for (std::string& item : items) {
      xml.Value("Item", item);
    }
    for (int i = 0; xml.IsReading() && i < xml.GetCurrent()->GetChildCount(); ++i) {
      items.push_back(xml.GetCurrent()->GetChild(i)->GetContent());
    }
  }

  bool operator==(const CRecord&) const = default;
};

TEST(Xml, ObjectsReadBackWhatTheyWrote) {
  CRecord written{true, -5, 4'000'000'000U, 0.25F, "two words", {1, -2, 3, 4}, {"a", "", "c"}, 9};
  ASSERT_TRUE(SaveXml(written, "record.xml", "Record"));
  CRecord read;
  test::CLogCapture log;
  EXPECT_TRUE(LoadXml(read, "record.xml"));
  EXPECT_EQ(read, written);
  EXPECT_EQ(log.Text(), "");
  EXPECT_EQ(ReadXmlFile("record.xml")->GetName(), "Record");
}

TEST(Xml, WithoutAFileTheObjectKeepsItsState) {
  CRecord record;
  record.number = 3;
  test::CLogCapture log;
  EXPECT_FALSE(LoadXml(record, "missing.xml"));
  EXPECT_FALSE(LoadXml(record, ""));
  EXPECT_FALSE(SaveXml(record, "no folder/record.xml"));
  EXPECT_EQ(record.number, 3);
  EXPECT_EQ(log.Text(), "");
}

TEST(Xml, UnreadableValuesKeepTheVariable) {
  const char* const flags[] = {"", "2", "true", "-1"};
  const char* const numbers[] = {"", "x", "99999999999", "-99999999999"};
  const char* const counts[] = {"", "-1", " -1", "4294967296"};
  const char* const ratios[] = {"", "x", "1e99", "-1e99"};
  for (std::size_t i = 0; i < std::size(flags); ++i) {
    const auto root = Read(std::string("<r><Flag>") + flags[i] + "</Flag><Number>" + numbers[i] +
                           "</Number><Count>" + counts[i] + "</Count><Ratio>" + ratios[i] +
                           "</Ratio><Rect x=\"5\" y=\"z\" h=\"99999999999\"/></r>");
    CXmlContext xml(root.get(), CXmlContext::kReading);
    CRecord record{true, 1, 2, 3.5F, "", {1, 2, 3, 4}, {}, 0};
    EXPECT_TRUE(xml.Value("Flag", record.flag) && xml.Value("Number", record.number) &&
                xml.Value("Count", record.count) && xml.Value("Ratio", record.ratio) &&
                xml.Value("Rect", record.rect));
    EXPECT_EQ(record, (CRecord{true, 1, 2, 3.5F, "", {5, 2, 3, 4}, {}, 0})) << i;
  }
}

TEST(XmlContext, ReportsWhatIsOutOfPlace) {
  using Action = std::function<void(CXmlContext&)>;
  const auto get = [](const char* name) {
    return [name](CXmlContext& xml) { xml.GetChild(name); };
  };
  const std::string end = " in file: f.xml at line 0\n";
  const std::string order =
      "Xml warning a child node wasn't in the place it should be, order fucked up in node: ";
  const std::string none = "Xml warning, ain't no childs left in the current node: ";
  const std::string other = "Xml warning, trying to end a different node: ";
  const struct {
    const char* what;
    std::vector<Action> actions;
    std::string logged;
  } cases[] = {
      {"in order", {get("a"), get("b"), get("c")}, ""},
      {"reversed",
       {get("c"), get("b"), get("a")},
       order + "r" + end + none + "r" + end + order + "r" + end + order + "r" + end},
      {"past the end",
       {get("c"), get("z"), get("a")},
       order + "r" + end + none + "r" + end + none + "r" + end + order + "r" + end},
      {"missing", {get("z"), get("a"), get("b")}, ""},
      {"missing node", {[](CXmlContext& xml) { EXPECT_FALSE(xml.BeginNode("z")); }, get("a")}, ""},
      {"down and up goes on behind",
       {get("a"), [](CXmlContext& xml) { EXPECT_TRUE(xml.BeginNode("b")); }, get("d"),
        [](CXmlContext& xml) { xml.EndNode("b"); }, get("c")},
       ""},
      {"wrong end still goes up",
       {get("a"), [](CXmlContext& xml) { EXPECT_TRUE(xml.BeginNode("b")); },
        [](CXmlContext& xml) { xml.EndNode("a"); }, get("c")},
       other + "a should end: b" + end},
  };
  for (const auto& c : cases) {
    const auto root = Read("<r><a/><b><d/></b><c/></r>");
    CXmlContext xml(root.get(), CXmlContext::kReading, "f.xml");
    test::CLogCapture log;
    for (const Action& action : c.actions) {
      action(xml);
    }
    EXPECT_EQ(log.Text(), c.logged) << c.what;
  }
}

TEST(XmlContext, FindsEachChildInAnyOrder) {
  const auto root = Read("<r><a>1</a><b>2</b><a>3</a></r>");
  CXmlContext xml(root.get(), CXmlContext::kReading);
  std::string found;
  for (const char* name : {"b", "a", "a", "b"}) {
    found += xml.GetChild(name)->GetContent();
  }
  EXPECT_EQ(found, "2312");
}

TEST(XmlContext, BelowNoElementNothingHappens) {
  const auto child = std::make_unique<CXmlElement>("child");
  CXmlContext above(child.get(), CXmlContext::kReading);
  above.EndNode("child");
  CXmlContext reading(nullptr, CXmlContext::kReading);
  CXmlContext writing(nullptr, CXmlContext::kWriting);
  test::CLogCapture log;
  for (CXmlContext* xml : {&above, &reading, &writing}) {
    int number = 4;
    CRect<int> rect{1, 2, 3, 4};
    EXPECT_FALSE(xml->HasChild("a") || xml->BeginNode("a") || xml->Value("a", number) ||
                 xml->Value("a", rect) || xml->OptionalValue("a", number));
    EXPECT_EQ(xml->GetChild("a"), nullptr);
    xml->SetAttribute("a", 1);
    xml->EndNode("a");
    EXPECT_EQ(xml->GetCurrent(), nullptr);
    EXPECT_EQ(number, 4);
  }
  EXPECT_EQ(log.Text(), "");
}

// Each would take minutes, or the whole stack, if the work grew faster than the input.
TEST(Xml, HugeDocuments) {
  std::string deep;
  for (int i = 0; i < 300'000; ++i) {
    deep += "<a>";
  }
  EXPECT_EQ(Read(deep)->GetChildCount(), 1);

  const auto nested = Read(deep.substr(0, 3 * 3'000));
  const auto text = Written(*nested);
  EXPECT_EQ(text.size(), 3'000U * (4 + 5 + 2 * 2'999));

  std::string wide = "<a";
  for (int i = 0; i < 100'000; ++i) {
    wide += " n" + std::to_string(i) + "=\"v\"";
  }
  EXPECT_EQ(Read(wide + "/>")->GetAttributes().size(), 100'000U);

  const std::string value(10'000'000, '=');
  const auto big = Read("<a x=\"" + value + "\" y=\"1\">" + value + "&amp;</a>");
  EXPECT_EQ(big->GetAttribute("x").ToString(), value);
  EXPECT_EQ(big->GetContent(), value + "&");

  std::string entities;
  for (int i = 0; i < 500'000; ++i) {
    entities += "&lt;&amp;";
  }
  EXPECT_EQ(Read("<a>" + entities + "</a>")->GetContent().size(), 1'000'000U);

  std::string words = "<a x=\"1\"";
  for (int i = 0; i < 200'000; ++i) {
    words += " w";
  }
  for (int i = 0; i < 20'000; ++i) {
    words += " k" + std::to_string(i) + " = v";
  }
  EXPECT_EQ(Read(words + ">")->GetAttributes().size(), 20'001U);
}

TEST(XmlContext, LongListsReadInLinearTime) {
  std::string list = "<r>";
  for (int i = 0; i < 200'000; ++i) {
    list += "<i><v>1</v></i>";
  }
  const auto root = Read(list + "</r>");
  CXmlContext xml(root.get(), CXmlContext::kReading);
  int sum = 0;
  while (xml.HasChild("i") && sum < 200'000 && xml.BeginNode("i")) {
    int value = 0;
    xml.Value("v", value);
    sum += value;
    xml.EndNode("i");
  }
  EXPECT_EQ(sum, 200'000);
}

}  // namespace
}  // namespace vask
