// The sprite table, a timer and the wiring of a signal read themselves from any document, and again
// from what they write.

#include "fuzz.h"
#include "game/gfxfactory.h"
#include "support/fakeclock.h"
#include "utils/signalslot/cssobject.h"
#include "utils/signalslot/signal.h"
#include "utils/signalslot/signalwiring.h"
#include "utils/timer/timer.h"
#include "utils/xml/xml.h"

namespace {

class CLamp : public vask::css::CCSSObject<CLamp> {
 public:
  std::string GetName() const override { return "lamp"; }
  void Toggle() {}
};
const auto& theSlots =
    vask::css::CSSObject<CLamp>::GetSingleton().SetClassName("lamp").Add("Toggle", &CLamp::Toggle);

template <typename T>
std::string Saved(T& object) {
  vask::SaveXml(object, "output.xml");
  return vask::fuzz::ReadFile("output.xml");
}

// The second object is a new one, too.
template <typename T>
void CheckReadsAgain(T& object, T& same) {
  vask::LoadXml(object, "input.xml");
  const std::string once = Saved(object);
  vask::LoadXml(same, "output.xml");
  vask::fuzz::Require(Saved(same) == once || !vask::fuzz::HasOnlyPlainValues(once));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vask::fuzz::WriteFile("input.xml", vask::fuzz::ToText(data, size));
  brumble::CGfxFactory table, sameTable;
  CheckReadsAgain(table, sameTable);
  const vask::test::CFakeClock clock;
  vask::CTimer timer, sameTimer;
  CheckReadsAgain(timer, sameTimer);
  vask::fuzz::Require(theSlots.GetClassName() == "lamp");
  const CLamp lamp;
  vask::css::CSignal signal, sameSignal;
  vask::css::CSignalWiring wiring(signal), sameWiring(sameSignal);
  CheckReadsAgain(wiring, sameWiring);
  signal.Emit();
  return 0;
}
