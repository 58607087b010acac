#include "utils/signalslot/signal.h"

#include "support/files.h"
#include "support/logcapture.h"
#include "utils/containers/varref.h"
#include "utils/signalslot/cssobject.h"
#include "utils/signalslot/signalwiring.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace vask::test {
namespace {

std::string ourRecord;

// Records its letter when it is called, then calls the reaction of the test, once.
struct CReceiver : css::CSignalTarget {
  explicit CReceiver(char name) : myName(name) {}
  void Hear() {
    ourRecord += myName;
    if (const auto once = std::exchange(myReaction, nullptr)) {
      once();
    }
  }
  void HearNumber(int n) { ourRecord += "n" + std::to_string(n) + " "; }
  void HearText(const std::string& text) { ourRecord += "t" + text + " "; }
  void HearTwo(int a, int b) { ourRecord += std::to_string(a) + "/" + std::to_string(b) + " "; }

  std::function<void()> myReaction;
  char myName;
};

int HearFree(float a, std::string b) {
  ourRecord += "f" + WriteToText(a) + "," + b + " ";
  return 0;
}

struct SignalTest : testing::Test {
  SignalTest() { ourRecord.clear(); }

  void Connect(char name) {
    myTargets[name] = std::make_unique<CReceiver>(name);
    mySignal->Connect(myTargets[name].get(), &CReceiver::Hear);
  }
  std::string Emit() {
    if (mySignal != nullptr) {
      mySignal->Emit();
    }
    return std::exchange(ourRecord, {});
  }

  std::unique_ptr<css::CSignal> mySignal = std::make_unique<css::CSignal>();
  std::map<char, std::unique_ptr<CReceiver>> myTargets;
};

TEST_F(SignalTest, ConnectionsEndAndBeginDuringAnEmission) {
  // Connects "a", "b" and "c". Returns whom an emission calls when "a" and "b" react so, and whom
  // the next one calls.
  const auto called = [&](const auto& reactionOfA, const std::function<void()>& reactionOfB = {}) {
    mySignal = std::make_unique<css::CSignal>();
    for (const char name : {'a', 'b', 'c'}) {
      Connect(name);
    }
    myTargets['a']->myReaction = reactionOfA;
    myTargets['b']->myReaction = reactionOfB;
    const std::string first = Emit(), next = Emit();
    EXPECT_EQ(mySignal != nullptr ? mySignal->GetConnectionCount() : 0, next.size());
    return first + " " + next;
  };
  const auto emit = [&] { mySignal->Emit(); };
  const auto deleteB = [&] { myTargets.erase('b'); };
  EXPECT_EQ(called([&] { myTargets.erase('a'); }), "abc bc");
  EXPECT_EQ(called(deleteB), "ac ac");
  EXPECT_EQ(called([&] { myTargets['a']->DropConnections(); }), "abc bc");
  EXPECT_EQ(called([&] { myTargets.clear(); }), "a ");
  EXPECT_EQ(called([&] { Connect('d'); }), "abc abcd");
  EXPECT_EQ(called(emit), "aabcbc abc");
  EXPECT_EQ(called(emit, deleteB), "aabcc ac");
  EXPECT_EQ(called(emit, [&] { mySignal.reset(); }), "aab ");
}

TEST_F(SignalTest, ArgumentsFitTheSlotOrItIsNotCalled) {
  CReceiver target('-');
  mySignal->Connect(&target, &CReceiver::Hear);
  mySignal->Connect(&target, &CReceiver::HearNumber);
  mySignal->Connect(&target, &CReceiver::HearText);
  mySignal->Connect(&target, &CReceiver::HearTwo);
  mySignal->Connect(&HearFree);
  const auto called = [this](const auto&... arguments) {
    mySignal->Emit(arguments...);
    return std::exchange(ourRecord, {});
  };
  EXPECT_EQ(called(), "-");
  EXPECT_EQ(called(5), "n5 t5 ");
  EXPECT_EQ(called("7 x"), "n7 t7 x ");
  EXPECT_EQ(called(3, -4), "3/-4 f3,-4 ");
  EXPECT_EQ(called("3.5", 4.9F), "3/4 f3.5,4.9 ");
  EXPECT_EQ(called("x", 1), "");
}

class CLamp : public css::CCSSObject<CLamp> {
 public:
  std::string GetName() const override { return myName; }
  void Toggle();

  explicit CLamp(std::string name) : myName(std::move(name)) {}
  void Dim(int percent) { ourRecord += myName + std::to_string(percent) + " "; }

 private:
  std::string myName;
};

void CLamp::Toggle() { ourRecord += myName + " "; }

using css::CSSObject;
const auto& theSlots =
    CSSObject<CLamp>::GetSingleton().SetClassName("lamp").Add("Toggle", &CLamp::Toggle);

struct SignalWiringTest : SignalTest {
  SignalWiringTest() { CSSObject<CLamp>::GetSingleton().Add("Dim", &CLamp::Dim); }

  static std::string Slot(const std::string& target, const std::string& function) {
    return "  <Slot function=\"" + function + "\" target=\"" + target + "\" >\n  </Slot>\n";
  }
  void Read(const std::string& text) {
    WriteFile("slots.xml", text);
    css::CSignalWiring wiring(*mySignal);
    LoadXml(wiring, "slots.xml");
  }
  std::string Written() {
    css::CSignalWiring wiring(*mySignal);
    SaveXml(wiring, "slots.xml");
    return FileText("slots.xml");
  }

  CLamp a{"a"};
  CLamp b{"b"};
};

TEST_F(SignalWiringTest, ReadsTheSlotsThatItFindsAndWritesThemBack) {
  const CLamp second("a");  // the older one has the name
  const std::string good = Slot("b", "Toggle") + Slot("a", "Dim") + Slot("a", "Toggle");
  const CLogCapture log;
  Read("<r>" + good + "<Else target=\"a\" function=\"Toggle\"></Else>" + Slot("z", "Toggle") +
       Slot("a", "none") + "<Slot></Slot></r>");
  EXPECT_EQ(log.Count("Could not connect the slot"), 3U);
  EXPECT_NE(Written().find(">\n" + good + "</"), std::string::npos) << Written();
  CSSObject<CLamp>::GetSingleton().SetSaved(false);
  mySignal->Connect(&a, &CLamp::Toggle);
  EXPECT_NE(Written().find(">\n" + good + "</"), std::string::npos) << "as before";
  CSSObject<CLamp>::GetSingleton().SetSaved(true);
  EXPECT_EQ(Emit(), "b a a ");
}

TEST_F(SignalWiringTest, AnObjectConnectsItsSlotsByName) {
  CLamp lamp("lamp");
  EXPECT_EQ(lamp.GetClassName(), theSlots.GetClassName());
  EXPECT_FALSE(lamp.HasSlot("dim"));
  EXPECT_EQ(lamp.Connect("Dim")->GetSlot().GetArgumentCount(), 1);
  css::CSignal clicked;
  clicked.Connect(&lamp, &CLamp::Toggle);
  clicked.Emit();  // calls the slots in the order of connecting
  Read(DocExample("Signal wiring"));
  EXPECT_EQ(Emit(), "lamp lamp ");
}

}  // namespace
}  // namespace vask::test
