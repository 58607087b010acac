#include "utils/signalslot/signal.h"

#include "support/docexample.h"
#include "support/logcapture.h"
#include "utils/signalslot/cssobject.h"
#include "utils/signalslot/signalwiring.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>

namespace vask::css {
namespace {

std::string ourRecord;

struct CPad {
  virtual ~CPad() = default;
  int pad = 0;
};

// Records its letter when it is called, and does once what the test wants. Its own part does not
// begin where the object does.
struct CReceiver : CPad, CSignalTarget {
  explicit CReceiver(char itsName) : name(itsName) {}
  void Hear() {
    ourRecord += name;
    const auto once = std::exchange(react, nullptr);
    once ? once() : void();
  }
  void HearNumber(int n) { ourRecord += "n" + std::to_string(n) + " "; }
  void HearSwitch(bool on) { ourRecord += on ? "on " : "off "; }
  void HearText(const std::string& text) { ourRecord += "t" + text + " "; }
  void HearTwo(int a, int b) { HearNumber(a), HearNumber(b); }
  char name;
  std::function<void()> react;
};

int HearFree(double a, std::string b) {
  ourRecord += "f" + std::to_string(static_cast<int>(a * 10)) + "," + b + " ";
  return 0;
}

class SignalTest : public testing::Test {
 protected:
  SignalTest() { ourRecord.clear(); }
  void Connect(char name) {
    targets[name] = std::make_unique<CReceiver>(name);
    signal->Connect(targets[name].get(), &CReceiver::Hear);
  }
  std::string Emit() {
    signal != nullptr ? signal->Emit() : void();
    return std::exchange(ourRecord, {});
  }
  std::unique_ptr<CSignal> signal = std::make_unique<CSignal>();
  std::map<char, std::unique_ptr<CReceiver>> targets;
};

TEST_F(SignalTest, ConnectionsEndAndBeginDuringAnEmission) {
  const auto again = [&](char who, std::function<void()> act) {
    targets[who]->react = std::move(act);
    signal->Emit();
  };
  // Done by "a", the first of "a", "b" and "c"; what that emission calls, and the next one.
  // clang-format off
  const struct { std::function<void()> act; const char* during; const char* after; } cases[] = {
      {[] {}, "abc", "abc"},
      {[&] { targets['a'].reset(); }, "abc", "bc"},
      {[&] { targets['b'].reset(); }, "ac", "ac"},
      {[&] { targets['a']->DropConnections(); }, "abc", "bc"},
      {[&] { targets.clear(); }, "a", ""},
      {[&] { signal.reset(); targets.clear(); }, "a", ""},
      {[&] { Connect('d'); }, "abc", "abcd"},
      {[&] { Connect('b'); }, "ac", "acb"},
      {[&] { for (char d = 'd'; d <= 'z'; ++d) { Connect(d); } }, "abc", "abcdefghijklmnopqrstuvwxyz"},
      {[&] { signal->Emit(); }, "aabcbc", "abc"},
      {[&] { Connect('d'); signal->Emit(); }, "aabcdbc", "abcd"},
      {[&] { again('a', [&] { targets['b'].reset(); }); }, "aacc", "ac"},
      {[&] { again('b', [&] { signal.reset(); }); }, "aab", ""},
  };
  // clang-format on
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(i);
    targets.clear();
    signal = std::make_unique<CSignal>();
    Connect('a'), Connect('b'), Connect('c');
    targets['a']->react = cases[i].act;
    EXPECT_EQ(Emit(), cases[i].during);
    EXPECT_EQ(Emit(), cases[i].after);
    EXPECT_TRUE(signal == nullptr ||
                signal->GetConnectionCount() == std::string(cases[i].after).size());
  }
}

TEST_F(SignalTest, ATargetHoldsNoLinkOfADeadSignal) {
  Connect('a');
  CSignal other;
  other.Connect(targets['a'].get(), &CReceiver::Hear);
  other.Connect(static_cast<CReceiver*>(nullptr), &CReceiver::Hear);
  signal.reset();
  EXPECT_EQ(targets['a']->GetConnectionCount(), 1U);
  targets.clear();
  EXPECT_EQ(other.GetConnectionCount(), 0U);
}

// clang-format off
TEST_F(SignalTest, ArgumentsFitTheSlotOrItIsNotCalled) {
  CReceiver target('-');
  signal->Connect(&target, &CReceiver::Hear), signal->Connect(&target, &CReceiver::HearNumber);
  signal->Connect(&target, &CReceiver::HearSwitch), signal->Connect(&target, &CReceiver::HearText);
  signal->Connect(&target, &CReceiver::HearTwo), signal->Connect(&HearFree);
  using Arguments = std::vector<CAnyContainer>;
  const std::pair<Arguments, const char*> cases[] = {
      {{}, "-"}, {{5}, "n5 t5 "}, {{1U}, "n1 on t1 "}, {{false}, "n0 off t0 "}, {{"7 x"}, "n7 t7 x "},
      {{"x"}, "tx "}, {{""}, "t "}, {{2.5}, "n2 t2.5 "}, {{99999999999L}, "t99999999999 "},
      {{3, -4}, "n3 n-4 f30,-4 "}, {{"3", 4.9F}, "n3 n4 f30,4.9 "}, {{1.5, "y"}, "f15,y "}, {{"x", 1}, ""},
  };
  for (const auto& [a, called] : cases) {
    ourRecord.clear();
    a.empty() ? signal->Emit() : a.size() == 1 ? signal->Emit(a[0]) : signal->Emit(a[0], a[1]);
    EXPECT_EQ(ourRecord, called);
  }
}
// clang-format on

struct CNamed : CPad, CCSSObject<CNamed> {
  explicit CNamed(std::string itsName) : name(std::move(itsName)) {}
  std::string GetName() const override { return name; }
  void Hear() { ourRecord += name; }
  void Add(int number) { ourRecord += name + std::to_string(number); }
  std::string name;
};

std::string Written(CSignal& signal) {
  CXmlElement root("r");
  CXmlContext xml(&root, CXmlContext::kWriting);
  CSignalWiring(signal).Serialize(xml);
  std::ostringstream stream;
  WriteXml(root, stream);
  return stream.str();
}

TEST_F(SignalTest, IsWiredByXml) {
  auto& table = CSSObject<CNamed>::GetSingleton();
  table.SetClassName("named").Add("hear", &CNamed::Hear).Add("add", &CNamed::Add);
  CNamed a("a");
  auto b = std::make_unique<CNamed>("b");
  const CNamed second("a");  // the older one has the name

  const auto element = [](const std::string& target, const std::string& function) {
    return "  <Slot function=\"" + function + "\" target=\"" + target + "\" >\n  </Slot>\n";
  };
  const std::string good = element("b", "hear") + element("a", "add") + element("a", "hear");
  const auto read = [this](const std::string& text) {
    std::istringstream document(text);
    const auto root = ReadXml(document);
    CXmlContext xml(root.get(), CXmlContext::kReading);
    CSignalWiring(*signal).Serialize(xml);
  };
  const test::CLogCapture log;
  read("<r>" + good + "<Else target=\"a\" function=\"hear\"></Else>" + element("z", "hear") +
       element("a", "none") + "<Slot></Slot></r>");
  EXPECT_EQ(log.Count("Could not connect the slot"), 3U) << log.Text();

  signal->Connect(&HearFree);
  table.SetSaved(false);
  signal->Connect(b.get(), &CNamed::Hear);
  table.SetSaved(true);
  EXPECT_EQ(Written(*signal), "<r>\n" + good + "</r>\n");
  signal->Connect(&a, &CNamed::Hear);  // has a name, however it was connected
  EXPECT_EQ(Written(*signal), "<r>\n" + good + element("a", "hear") + "</r>\n");
  EXPECT_EQ(Emit(), "baba");
  auto unused = b->Connect("hear");
  b.reset();
  signal->Connect(std::move(unused));
  EXPECT_EQ(Emit(), "aa");
  signal->Emit(7);
  EXPECT_EQ(std::exchange(ourRecord, {}), "a7");

  const CNamed lamp("lamp");
  table.Add("toggle", &CNamed::Hear);
  read(test::DocExample("Signal wiring"));
  EXPECT_EQ(Emit(), "aalamp");
}

}  // namespace
}  // namespace vask::css
