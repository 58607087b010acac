#include "tools/tester.h"
#include "utils/signalslot/cssobject.h"
#include "utils/signalslot/signal.h"
#include "utils/signalslot/signalwiring.h"
#include "utils/xml/xml.h"

#include <memory>
#include <sstream>
#include <string>
#include <utility>

namespace vask::tester {
namespace {

class CLamp : public css::CCSSObject<CLamp> {
 public:
  explicit CLamp(std::string name) : myName(std::move(name)) {}
  std::string GetName() const override { return myName; }
  void Toggle() { myIsOn = !myIsOn; }
  void Dim(int percent) { myPercent = percent; }
  bool IsOn() const { return myIsOn; }
  int GetPercent() const { return myPercent; }

 private:
  std::string myName;
  bool myIsOn = false;
  int myPercent = 100;
};

const auto& ourSlots = css::CSSObject<CLamp>::GetSingleton()
                           .SetClassName("selftest_lamp")
                           .Add("Toggle", &CLamp::Toggle)
                           .Add("Dim", &CLamp::Dim);

std::string Written(css::CSignal& signal) {
  CXmlElement root("Signal");
  CXmlContext xml(&root, CXmlContext::kWriting);
  css::CSignalWiring(signal).Serialize(xml);
  std::ostringstream stream;
  WriteXml(root, stream);
  return stream.str();
}

// Wires a signal to two lamps from a document, writes it back, and takes one lamp away.
bool TestSignalWiring(STest& test) {
  VASK_TEST_ASSERT(test, ourSlots.GetClassName() == "selftest_lamp", ourSlots.GetClassName());
  CLamp left("selftest_left");
  auto right = std::make_unique<CLamp>("selftest_right");
  const std::string wiring =
      "<Signal>\n"
      "  <Slot function=\"Toggle\" target=\"selftest_left\" >\n  </Slot>\n"
      "  <Slot function=\"Toggle\" target=\"selftest_right\" >\n  </Slot>\n"
      "  <Slot function=\"Dim\" target=\"selftest_left\" >\n  </Slot>\n"
      "</Signal>\n";
  std::istringstream document(wiring);
  const std::unique_ptr<CXmlElement> root = ReadXml(document);
  CXmlContext xml(root.get(), CXmlContext::kReading);
  css::CSignal signal;
  css::CSignalWiring(signal).Serialize(xml);
  VASK_TEST_ASSERT(test, Written(signal) == wiring, Written(signal));
  signal.Emit();
  VASK_TEST_ASSERT(test, left.IsOn() && right->IsOn(), "a slot was not called");
  right.reset();
  signal.Emit();
  signal.Emit("40");
  VASK_TEST_ASSERT(test, !left.IsOn() && left.GetPercent() == 40,
                   "a slot was not called once the other lamp was gone");
  return false;
}

const CTestRegistrar theRegistrar(&TestSignalWiring, "Signal wiring", __FILE__);

}  // namespace
}  // namespace vask::tester
